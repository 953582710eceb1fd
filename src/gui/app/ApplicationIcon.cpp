#include "gui/app/ApplicationIcon.h"

#include <QGuiApplication>
#include <QIcon>

namespace tidewell {

void useApplicationIcon() {
    if (QGuiApplication::windowIcon().isNull())
        QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("com.quorvel.tidewell"),
                                                        QIcon(":/icons/com.quorvel.tidewell.svg")));
}

} // namespace tidewell
