#include "linux/XdgAutostartLoginItemService.h"

#include "linux/CurrentApplicationLocation.h"

#include <sstream>
#include <string_view>

namespace tidewell {
namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

// Whether the [Desktop Entry] group turns the entry off, as the user's session does
// when autostart is switched off in its settings.
bool isSwitchedOff(const std::string& entry) {
    std::istringstream lines(entry);
    std::string line;
    bool isMainGroup = false;
    while (std::getline(lines, line)) {
        const std::string_view text = trimmed(line);
        if (text.starts_with('[')) {
            isMainGroup = text == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = text.find('=');
        if (!isMainGroup || equals == std::string_view::npos)
            continue;
        const std::string_view key = trimmed(text.substr(0, equals));
        const std::string_view value = trimmed(text.substr(equals + 1));
        if ((key == "Hidden" && value == "true") ||
            (key == "X-GNOME-Autostart-enabled" && value == "false"))
            return true;
    }
    return false;
}

// One Exec argument: quoted when it holds a reserved character, with '%' doubled so it
// is not read as a field code, then escaped once more as a desktop-entry string value.
std::string execArgument(const std::string& argument) {
    constexpr std::string_view reserved = " \t\n\"'\\><~|&;$*?#()`";
    std::string quoted = argument;
    if (argument.find_first_of(reserved) != std::string::npos) {
        quoted = "\"";
        for (const char c : argument) {
            if (c == '"' || c == '`' || c == '$' || c == '\\')
                quoted += '\\';
            quoted += c;
        }
        quoted += '"';
    }
    std::string value;
    for (const char c : quoted) {
        if (c == '%')
            value += "%%";
        else if (c == '\\')
            value += "\\\\";
        else if (c == '\n')
            value += "\\n";
        else
            value += c;
    }
    return value;
}

std::string desktopEntry(const std::string& executable) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Tidewell\n"
           "Comment=A shelf of project folders at the top of the screen\n"
           "Exec=" +
           execArgument(executable) +
           "\n"
           "Icon=com.quorvel.tidewell\n"
           "Terminal=false\n"
           "NoDisplay=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

} // namespace

XdgAutostartLoginItemService::XdgAutostartLoginItemService(FileSystem& files,
                                                           const std::string& configHome,
                                                           ApplicationLocation application)
    : files_(files), autostartFolder_(configHome + "/autostart"),
      application_(std::move(application)) {}

LoginItemStatus XdgAutostartLoginItemService::status() const {
    if (!application_.isInstalled)
        return LoginItemStatus::notFound;
    const auto entry = files_.readFile(entryPath());
    if (!entry || isSwitchedOff(*entry))
        return LoginItemStatus::notRegistered;
    return LoginItemStatus::enabled;
}

void XdgAutostartLoginItemService::registerApplication() {
    files_.createDirectories(autostartFolder_);
    files_.writeFileAtomically(entryPath(), desktopEntry(application_.executable));
}

void XdgAutostartLoginItemService::unregisterApplication() {
    if (files_.exists(entryPath()))
        files_.removeFile(entryPath());
}

std::string XdgAutostartLoginItemService::entryPath() const {
    return autostartFolder_ + "/" + desktopEntryFileName;
}

} // namespace tidewell
