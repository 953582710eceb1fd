#include "gui/SymbolIcons.h"

#include <QHash>

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

} // namespace tidewell
