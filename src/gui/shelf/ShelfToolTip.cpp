#include "gui/shelf/ShelfToolTip.h"

#include "gui/windowsystem/x11/X11WindowControl.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QQuickWindow>
#include <QRasterWindow>
#include <QScreen>
#include <QStyleHints>
#include <algorithm>

namespace tidewell {

namespace {

constexpr int textPixelSize = 11;
constexpr int horizontalPadding = 7;
constexpr int verticalPadding = 3;
// Between the tile and the tooltip, and between the tooltip and the screen's edges.
constexpr int gap = 4;

// Where a tooltip of this size goes for the tile: centred below it, or above it when the
// screen ends too soon, and moved sideways to stay on the screen.
QPoint placeFor(const QRect& tile, QSize size, const QRect& screen) {
    const int left = std::clamp(tile.center().x() - size.width() / 2, screen.left() + gap,
                                screen.right() + 1 - gap - size.width());
    int top = tile.bottom() + 1 + gap;
    if (top + size.height() > screen.bottom() + 1 - gap)
        top = tile.top() - gap - size.height();
    return {left, std::max(top, screen.top())};
}

} // namespace

// One line of text on the shelf's colours: light on black, or the desktop's own colours for
// glass. Override-redirect on X11, as tooltips are, and shaped to take no pointer events.
class ToolTipWindow : public QRasterWindow {
public:
    ToolTipWindow() {
        setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                 Qt::WindowTransparentForInput);
        font_.setPixelSize(textPixelSize);
    }

    void present(const QString& text, bool isGlass, const QRect& tile, const QRect& screen) {
        const QFontMetrics metrics(font_);
        const int widest = screen.width() - 2 * gap - 2 * horizontalPadding;
        text_ = metrics.elidedText(text, Qt::ElideMiddle, widest);
        const QPalette palette = QGuiApplication::palette();
        background_ = isGlass ? palette.color(QPalette::Window) : QColor(Qt::black);
        foreground_ = isGlass ? palette.color(QPalette::WindowText) : QColor(Qt::white);
        const QSize size(metrics.horizontalAdvance(text_) + 2 * horizontalPadding,
                         metrics.height() + 2 * verticalPadding);
        setGeometry(QRect(placeFor(tile, size, screen), size));
        show();
        // Qt leaves a tooltip's input shape whole: emptied, the pointer stays on the shelf.
        X11WindowControl control(winId());
        control.setInputShape(QRegion());
        control.flush();
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(QRect(QPoint(), size()), background_);
        QColor border = foreground_;
        border.setAlphaF(0.18f);
        painter.setPen(border);
        painter.drawRect(QRect(QPoint(), size()).adjusted(0, 0, -1, -1));
        painter.setPen(foreground_);
        painter.setFont(font_);
        painter.drawText(QRect(QPoint(), size()), Qt::AlignCenter | Qt::TextSingleLine, text_);
    }

private:
    QFont font_;
    QString text_;
    QColor background_;
    QColor foreground_;
};

ShelfToolTip::ShelfToolTip(QObject* parent) : QObject(parent) {
    delay_.setSingleShot(true);
    delay_.setInterval(QGuiApplication::styleHints()->mousePressAndHoldInterval());
    connect(&delay_, &QTimer::timeout, this, &ShelfToolTip::appear);
}

ShelfToolTip::~ShelfToolTip() = default;

void ShelfToolTip::setTarget(QQuickItem* target) {
    if (target == target_)
        return;
    disappear();
    target_ = target;
    emit targetChanged();
}

void ShelfToolTip::setShown(bool shown) {
    if (shown == isShown_)
        return;
    isShown_ = shown;
    isPressed_ = false;
    if (shown)
        delay_.start();
    else
        disappear();
    emit shownChanged();
}

bool ShelfToolTip::eventFilter(QObject* watched, QEvent* event) {
    if (watched == watchedWindow_) {
        if (event->type() == QEvent::MouseButtonPress) {
            isPressed_ = true;
            disappear();
        } else if (event->type() == QEvent::Hide) {
            disappear();
        }
    }
    return QObject::eventFilter(watched, event);
}

void ShelfToolTip::appear() {
    QQuickWindow* owner = target_ ? target_->window() : nullptr;
    if (!isShown_ || isPressed_ || text_.isEmpty() || !owner || !owner->isVisible())
        return;
    const QRect tile(target_->mapToGlobal(QPointF()).toPoint(), target_->size().toSize());
    const QScreen* screen = QGuiApplication::screenAt(tile.center());
    if (!screen)
        screen = owner->screen();
    if (watchedWindow_ != owner) {
        if (watchedWindow_)
            watchedWindow_->removeEventFilter(this);
        watchedWindow_ = owner;
        owner->installEventFilter(this);
    }
    if (!window_)
        window_ = std::make_unique<ToolTipWindow>();
    window_->present(text_, isGlass_, tile, screen->geometry());
}

void ShelfToolTip::disappear() {
    delay_.stop();
    if (window_)
        window_->hide();
}

} // namespace tidewell
