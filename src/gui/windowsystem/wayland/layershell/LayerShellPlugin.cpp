#include "LayerShellIntegration.h"

#include <QtGlobal>
#include <QtWaylandClient/private/qwaylandshellintegrationplugin_p.h>
#include <cstring>

namespace tidewell {

// Built against Qt's private Wayland client API, which changes between Qt releases: loaded
// into another version it would crash, so it declines.
class LayerShellPlugin : public QtWaylandClient::QWaylandShellIntegrationPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QWaylandShellIntegrationFactoryInterface_iid FILE "layershell.json")
public:
    QtWaylandClient::QWaylandShellIntegration* create(const QString&, const QStringList&) override {
        if (std::strcmp(qVersion(), QT_VERSION_STR) != 0) {
            qWarning("Tidewell's layer-shell plugin was built for Qt %s, not %s: not loaded",
                     QT_VERSION_STR, qVersion());
            return nullptr;
        }
        // Read once by now: programs started from here get their desktop's own shell.
        qunsetenv("QT_WAYLAND_SHELL_INTEGRATION");
        return new LayerShellIntegration;
    }
};

} // namespace tidewell

#include "LayerShellPlugin.moc"
