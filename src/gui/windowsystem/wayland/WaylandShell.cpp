#include "gui/windowsystem/wayland/WaylandShell.h"

#include "gui/windowsystem/wayland/LayerSurfaceProperty.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <dlfcn.h>

namespace tidewell {

void prepareWaylandShell() {
    Dl_info library{};
    if (dladdr(reinterpret_cast<void*>(&prepareWaylandShell), &library) && library.dli_fname)
        QCoreApplication::addLibraryPath(QFileInfo(library.dli_fname).absolutePath() + "/plugins");
    // Qt takes the first of these that loads: ours declines to load into another Qt version,
    // and the windows are then normal ones. Ours clears the variable once loaded, so that
    // programs started from here get their desktop's own shell.
    qputenv("QT_WAYLAND_SHELL_INTEGRATION", QByteArray(layerShellIntegrationKey) + ";xdg-shell");
}

} // namespace tidewell
