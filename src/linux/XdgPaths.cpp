#include "linux/XdgPaths.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace tidewell::XdgPaths {
namespace {

std::optional<std::string> absoluteVariable(const char* name) {
    const char* value = std::getenv(name);
    if (!value || value[0] != '/')
        return std::nullopt;
    return std::string(value);
}

std::string passwordDatabaseHome() {
    long size = ::sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(size > 0 ? static_cast<std::size_t>(size) : 16384);
    struct passwd entry {};
    struct passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found ||
        !found->pw_dir || found->pw_dir[0] != '/')
        return "/";
    return found->pw_dir;
}

std::string home() {
    if (auto variable = absoluteVariable("HOME"))
        return *variable;
    return passwordDatabaseHome();
}

} // namespace

UserPaths userPaths() {
    const std::string homeFolder = home();
    return {homeFolder, absoluteVariable("XDG_DATA_HOME").value_or(homeFolder + "/.local/share")};
}

std::string configHome() {
    return absoluteVariable("XDG_CONFIG_HOME").value_or(home() + "/.config");
}

std::string runtimeFolder() {
    if (auto runtime = absoluteVariable("XDG_RUNTIME_DIR"))
        return *runtime;
    std::error_code ignored;
    const std::string temporary = std::filesystem::temp_directory_path(ignored);
    return temporary.empty() ? "/tmp" : temporary;
}

} // namespace tidewell::XdgPaths
