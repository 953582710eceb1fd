#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QTimer>
#include <memory>

class QWindow;

namespace tidewell {

class ToolTipWindow;

// A shelf tile's tooltip. The shelf's window is just large enough for the shelf and would cut
// a tooltip off, so it shows in a window of its own: centred below the tile after a short
// rest of the pointer, moved inside the tile's screen (above the tile when there is no room
// below), in the shelf's look. That window never takes the focus or the pointer, so the
// shelf closes as if it were not there; it goes when the tile's window hides or is pressed.
class ShelfToolTip : public QObject {
    Q_OBJECT
    Q_PROPERTY(QQuickItem* target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(QString text MEMBER text_ NOTIFY textChanged)
    Q_PROPERTY(bool shown READ isShown WRITE setShown NOTIFY shownChanged)
    Q_PROPERTY(bool isGlass MEMBER isGlass_ NOTIFY isGlassChanged)
public:
    explicit ShelfToolTip(QObject* parent = nullptr);
    ~ShelfToolTip() override;

    QQuickItem* target() const { return target_; }
    void setTarget(QQuickItem* target);
    bool isShown() const { return isShown_; }
    // While the pointer rests on the tile.
    void setShown(bool shown);

signals:
    void targetChanged();
    void textChanged();
    void shownChanged();
    void isGlassChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void appear();
    void disappear();

    QPointer<QQuickItem> target_;
    QString text_;
    bool isShown_ = false;
    bool isGlass_ = false;
    // A press hides the tooltip until the pointer leaves the tile and comes back.
    bool isPressed_ = false;
    QTimer delay_;
    QPointer<QWindow> watchedWindow_;
    std::unique_ptr<ToolTipWindow> window_;
};

} // namespace tidewell
