#include "gui/windowsystem/wayland/WaylandShell.h"

#include "gui/windowsystem/wayland/LayerSurfaceProperty.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <dlfcn.h>

namespace tidewell {

bool isWaylandOnlySession() {
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
           qEnvironmentVariableIsEmpty("DISPLAY");
}

void prepareWaylandShell() {
    Dl_info library{};
    if (dladdr(reinterpret_cast<void*>(&prepareWaylandShell), &library) && library.dli_fname)
        QCoreApplication::addLibraryPath(QFileInfo(library.dli_fname).absolutePath() + "/plugins");
    // The integration clears it once loaded, so that programs started from here get their
    // desktop's own shell.
    qputenv("QT_WAYLAND_SHELL_INTEGRATION", layerShellIntegrationKey);
}

} // namespace tidewell
