#pragma once

#include "core/observe/Signal.h"
#include "core/platform/Geometry.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>
#include <optional>

class QDrag;

namespace tidewell {

struct DropInfo;
struct DroppedData;
enum class DropOperation;
struct ShelfDropContext;
class TileDragSource;

// The shelf's drag-and-drop state and its drop targets, for the QML: the tile being dragged,
// where a folder would land, and the operations each drop area forwards to core.
class ShelfDrops : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString draggedItemId READ draggedItemId NOTIFY stateChanged)
    Q_PROPERTY(QString gapBeforeId READ gapBeforeId NOTIFY stateChanged)
    Q_PROPERTY(QString gapAfterId READ gapAfterId NOTIFY stateChanged)
    Q_PROPERTY(bool isGapAnimated READ isGapAnimated NOTIFY stateChanged)
public:
    // Where a drop area sits: on a tile, on the gap that shows where a folder lands, or over
    // the whole row.
    enum class Target { Tile, Gap, Container };
    Q_ENUM(Target)

    explicit ShelfDrops(ShelfDropContext& context);
    ~ShelfDrops() override;

    QString draggedItemId() const;
    QString gapBeforeId() const;
    QString gapAfterId() const;
    bool isGapAnimated() const;

    // `itemId` names the tile for Target::Tile and is ignored otherwise.
    bool validateDrop(Target target, const QString& itemId, const DropInfo& info) const;
    void dropEntered(Target target, const QString& itemId, const DropInfo& info);
    std::optional<DropOperation> dropUpdated(Target target, const QString& itemId,
                                             const DropInfo& info);
    void dropExited(Target target, const QString& itemId, const DropInfo& info);
    bool performDrop(Target target, const QString& itemId, const DropInfo& info,
                     const DroppedData& data);

    // Runs a tile's drag session until it ends, and then does what its end asks for: nothing
    // when a tile took the drop, keep the new order when it ended near the shelf, unpin the
    // project when far away.
    void runTileDrag(QDrag& drag, const QString& itemId,
                     const std::shared_ptr<TileDragSource>& source);
    // Where the pointer is, while anything moves it: the cursor of a tile drag follows it.
    void pointerMoved(Point screenPoint);

signals:
    void stateChanged();

private:
    template <typename Operation>
    auto withTarget(Target target, const QString& itemId, Operation operation) const;

    void showDragCursor(bool isNearShelf);

    ShelfDropContext& context_;
    Connection stateConnection_;
    QPointer<QDrag> tileDrag_;
    std::optional<bool> isNearShelf_;
};

} // namespace tidewell
