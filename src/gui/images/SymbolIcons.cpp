#include "gui/images/SymbolIcons.h"

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace tidewell {

namespace {

// Standard freedesktop names of the symbols the theme may draw better than we do.
const QHash<QString, QString>& themeNames() {
    static const QHash<QString, QString> names = {
        {"folder", "folder"},
        {"terminal", "utilities-terminal"},
        {"play.fill", "media-playback-start"},
        {"arrow.forward.circle", "go-next"},
        {"gearshape", "preferences-system"},
        {"folder.badge.plus", "folder-new"},
        {"plus", "list-add"},
    };
    return names;
}

} // namespace

QIcon symbolIcon(const QString& symbolName) {
    QIcon own(QStringLiteral(":/symbols/%1.svg").arg(symbolName));
    own.setIsMask(true); // black shapes that a style may recolour
    const QString themeName = themeNames().value(symbolName);
    return themeName.isEmpty() ? own : QIcon::fromTheme(themeName, own);
}

QIcon symbolIcon(const QString& symbolName, const QColor& color) {
    QSvgRenderer svg(QStringLiteral(":/symbols/%1.svg").arg(symbolName));
    QIcon icon;
    // Sharp at menu size on ordinary and on doubled screens.
    for (const int side : {16, 32}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        svg.render(&painter);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), color);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace tidewell
