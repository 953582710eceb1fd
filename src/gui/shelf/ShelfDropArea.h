#pragma once

#include "gui/shelf/ShelfDrops.h"

#include <QPointer>
#include <QQuickItem>

namespace tidewell {

// A place on the shelf that takes drops: it hands every drag event over it to the shelf's
// drop targets and answers the drag with what they propose.
class ShelfDropArea : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(ShelfDrops* drops MEMBER drops_ NOTIFY dropsChanged)
    Q_PROPERTY(tidewell::ShelfDrops::Target target MEMBER target_ NOTIFY targetChanged)
    Q_PROPERTY(QString itemId MEMBER itemId_ NOTIFY itemIdChanged)
public:
    explicit ShelfDropArea(QQuickItem* parent = nullptr);

signals:
    void dropsChanged();
    void targetChanged();
    void itemIdChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void propose(QDropEvent& event, DropOperation operation);

    QPointer<ShelfDrops> drops_;
    ShelfDrops::Target target_ = ShelfDrops::Target::Container;
    QString itemId_;
    // Formats of the drag under way, kept for its leave event, which carries none.
    QStringList formats_;
};

} // namespace tidewell
