#include "gui/platform/GioWorkspace.h"

#include "core/platform/PathText.h"

#include <filesystem>
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <memory>
#include <unistd.h>

namespace tidewell {
namespace {

constexpr const char* folderType = "inode/directory";
constexpr const char* fileManagerName = "org.freedesktop.FileManager1";
constexpr const char* fileManagerPath = "/org/freedesktop/FileManager1";

struct GObjectRelease {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T> using GObjectPointer = std::unique_ptr<T, GObjectRelease>;

// The percent-escaped file URI of an absolute path; empty for any other path.
std::string fileUri(const std::string& path) {
    std::unique_ptr<char, decltype(&g_free)> uri(g_filename_to_uri(path.c_str(), nullptr, nullptr),
                                                 &g_free);
    return uri ? std::string(uri.get()) : std::string();
}

GObjectPointer<GDesktopAppInfo> application(const std::string& applicationId) {
    return GObjectPointer<GDesktopAppInfo>(
        g_desktop_app_info_new((applicationId + ".desktop").c_str()));
}

// Runs in the started program between fork and exec.
void startNewSession(gpointer) {
    ::setsid();
}

void launchDetached(GDesktopAppInfo* application, const std::string& uri) {
    if (uri.empty())
        return;
    GObjectPointer<GAppLaunchContext> context(g_app_launch_context_new());
    for (const char* token : {"DESKTOP_AUTOSTART_ID", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"})
        g_app_launch_context_unsetenv(context.get(), token);
    GList* uris = g_list_append(nullptr, const_cast<char*>(uri.c_str()));
    g_desktop_app_info_launch_uris_as_manager(application, uris, context.get(), G_SPAWN_SEARCH_PATH,
                                              startNewSession, nullptr, nullptr, nullptr, nullptr);
    g_list_free(uris);
}

void openWithDefaultHandler(const std::string& path) {
    GObjectPointer<GAppInfo> handler(g_app_info_get_default_for_type(folderType, FALSE));
    if (handler && G_IS_DESKTOP_APP_INFO(handler.get()))
        launchDetached(G_DESKTOP_APP_INFO(handler.get()), fileUri(path));
}

// A reveal under way: the file manager is asked without waiting for it, and the enclosing
// folder is opened only when the request fails. A slow file manager is waited for, however
// long it takes, since opening the folder meanwhile would show two windows.
struct RevealRequest {
    std::string uri;
    std::string enclosingFolder;
};

void fileManagerAnswered(GObject* bus, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<RevealRequest> request(static_cast<RevealRequest*>(data));
    GVariant* reply = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr);
    if (reply)
        g_variant_unref(reply);
    else
        openWithDefaultHandler(request->enclosingFolder);
}

void sessionBusReady(GObject*, GAsyncResult* result, gpointer data) {
    std::unique_ptr<RevealRequest> request(static_cast<RevealRequest*>(data));
    GObjectPointer<GDBusConnection> bus(g_bus_get_finish(result, nullptr));
    if (!bus)
        return openWithDefaultHandler(request->enclosingFolder);
    // A session bus that goes away must not take the application with it.
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    const char* uris[] = {request->uri.c_str(), nullptr};
    GVariant* parameters = g_variant_new("(^ass)", uris, "");
    g_dbus_connection_call(bus.get(), fileManagerName, fileManagerPath, fileManagerName,
                           "ShowItems", parameters, nullptr, G_DBUS_CALL_FLAGS_NONE, G_MAXINT,
                           nullptr, fileManagerAnswered, request.release());
}

} // namespace

void GioWorkspace::openFolder(const std::string& path) {
    openWithDefaultHandler(path);
}

bool GioWorkspace::isApplicationInstalled(const std::string& applicationId) const {
    return application(applicationId) != nullptr;
}

bool GioWorkspace::openWithApplication(const std::string& applicationId, const std::string& path) {
    const auto found = application(applicationId);
    if (!found)
        return false;
    launchDetached(found.get(), fileUri(path));
    return true;
}

// The answers arrive on the main context, which the Qt event loop runs.
void GioWorkspace::reveal(const std::string& path) {
    std::string uri = fileUri(path);
    if (uri.empty())
        return;
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, sessionBusReady,
              new RevealRequest{std::move(uri),
                                std::filesystem::path(PathText::standardized(path)).parent_path()});
}

} // namespace tidewell
