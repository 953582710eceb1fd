#include "core/cli/CLI.h"

#include "core/cli/AddArguments.h"
#include "core/cli/ProcessRunner.h"
#include "core/items/Utf8Text.h"
#include "core/platform/Error.h"
#include "core/platform/PathText.h"

#include <algorithm>
#include <chrono>

namespace tidewell {
namespace {

constexpr const char* usageText = "tide - put terminal projects in your MacBook notch\n"
                                  "\n"
                                  "  tide .                         Add this folder to Recent\n"
                                  "  tide add .                     Pin this folder\n"
                                  "  tide add . --name Studio       Pin with a custom name\n"
                                  "  tide add . --command \"npm run dev\"\n"
                                  "  tide open .                    Record and open this folder\n"
                                  "  tide show                      Reveal the shelf\n"
                                  "  tide login-status              Show launch-at-login status\n"
                                  "  tide cache-icons               Cache project icons locally\n"
                                  "  tide list                      List all items\n"
                                  "  tide remove <name-or-id>       Remove an item\n";

constexpr const char* removeUsage = "Usage: tide remove <name-or-id>\n";

// How long a folder may take to answer whether it exists: long enough for a disk to wake,
// short enough that a network mount that hung is reported rather than waited on.
constexpr std::chrono::seconds folderAnswerLimit{5};

bool namesMatch(const std::string& name, const std::string& query) {
    return Utf8Text::caseFolded(name) == Utf8Text::caseFolded(query);
}

} // namespace

bool CLI::isCLIInvocation(const std::vector<std::string>& arguments) {
    return arguments.size() >= 2 && !arguments[1].starts_with("-psn_");
}

int CLI::run(const std::vector<std::string>& arguments) {
    if (arguments.size() < 2)
        return printUsage();
    const std::string& command = arguments[1];
    const std::vector<std::string> rest(arguments.begin() + 2, arguments.end());
    if (command == "add" || command == "fav" || command == "favorite")
        return add(rest, true);
    if (command == "recent" || command == "here")
        return add(rest, false);
    if (command == "open")
        return open(rest);
    if (command == "list")
        return list();
    if (command == "show")
        return show();
    if (command == "login-status") {
        services_.out << services_.launchAtLogin.statusDescription() << '\n';
        return 0;
    }
    if (command == "cache-icons")
        return cacheIcons();
    if (command == "remove")
        return remove(rest);
    if (command == "help" || command == "--help" || command == "-h")
        return printUsage();
    if (command == "--version") {
        services_.out << "tide " << services_.version << '\n';
        return 0;
    }
    return add(std::vector<std::string>(arguments.begin() + 1, arguments.end()), false);
}

int CLI::add(const std::vector<std::string>& arguments, bool favorite) {
    const AddArguments parsed = AddArguments::parse(arguments);
    const std::string path = resolvedPath(parsed.folder);
    const std::optional<bool> exists = services_.files.existsWithin(path, folderAnswerLimit);
    if (!exists) {
        services_.errors << "tide: " << path << " did not answer within "
                         << folderAnswerLimit.count()
                         << " seconds; is it on a network mount that stopped responding?\n";
        return 1;
    }
    if (!*exists) {
        services_.errors << "Path does not exist: " << path << '\n';
        return 2;
    }
    try {
        const std::optional<std::string> icon =
            parsed.icon ? std::optional(resolvedPath(parsed.icon)) : std::nullopt;
        const NotchItem item = services_.database.upsert({.path = path,
                                                          .favorite = favorite,
                                                          .name = parsed.name,
                                                          .command = parsed.command,
                                                          .icon = icon});
        services_.out << (favorite ? "Pinned" : "Added to recent") << ": " << item.name << '\n';
        return 0;
    } catch (const Error& error) {
        services_.errors << "tide: " << error.what() << '\n';
        return 1;
    }
}

std::string CLI::resolvedPath(const std::optional<std::string>& path) const {
    const std::string workingDirectory = services_.files.currentDirectory();
    const std::string expanded =
        PathText::expandingTilde(path.value_or(workingDirectory), services_.home);
    return PathText::standardized(PathText::absolute(expanded, workingDirectory));
}

// Opens the folder that was just recorded with the desktop's default handler.
int CLI::open(const std::vector<std::string>& arguments) {
    const int status = add(arguments, false);
    if (status != 0)
        return status;
    const std::string target = resolvedPath(AddArguments::parse(arguments).folder);
    return ProcessRunner::run(services_.launcher, services_.errors, "xdg-open", {target});
}

// Sorts pointers rather than records and writes the listing at once: a list can hold
// thousands of records.
int CLI::list() {
    const std::vector<NotchItem> items = services_.database.load();
    std::vector<const NotchItem*> order;
    order.reserve(items.size());
    for (const NotchItem& item : items)
        order.push_back(&item);
    std::stable_sort(order.begin(), order.end(), [](const NotchItem* a, const NotchItem* b) {
        return a->lastOpenedAt > b->lastOpenedAt;
    });
    std::string text;
    for (const NotchItem* item : order) {
        text += item->isFavorite ? "* " : "- ";
        text += item->name;
        text += '\t';
        text += item->path;
        text += '\n';
    }
    services_.out << text;
    return 0;
}

// Leaves the flag that makes the application show its shelf once, then starts it; a
// running instance is asked instead by the new one.
int CLI::show() {
    const std::string flag = services_.database.showOnLaunchFlagURL();
    try {
        services_.files.createDirectories(services_.database.dataFolder().path);
        services_.files.writeFileAtomically(flag, "");
    } catch (const Error&) {
    }
    try {
        services_.launcher.startDetached(services_.applicationExecutable, {});
        return 0;
    } catch (const Error& error) {
        services_.errors << error.what() << '\n';
        return 1;
    }
}

int CLI::cacheIcons() {
    try {
        const int count = services_.database.cacheExternalIcons();
        services_.out << "Cached " << count << " project icon" << (count == 1 ? "" : "s") << '\n';
        return 0;
    } catch (const Error& error) {
        services_.errors << "tide: " << error.what() << '\n';
        return 1;
    }
}

int CLI::remove(const std::vector<std::string>& arguments) {
    // An empty query would match every id, so it is refused like a missing one.
    if (arguments.empty() || arguments.front().empty()) {
        services_.errors << removeUsage;
        return 2;
    }
    const std::string& query = arguments.front();
    std::size_t removed = 0;
    try {
        services_.database.modify([&](std::vector<NotchItem>& items) {
            removed = std::erase_if(items, [&query](const NotchItem& item) {
                return namesMatch(item.name, query) || item.id.text().starts_with(query);
            });
            return removed > 0;
        });
    } catch (const Error& error) {
        services_.errors << "tide: " << error.what() << '\n';
        return 1;
    }
    if (removed == 0) {
        services_.errors << "No item matched " << query << '\n';
        return 1;
    }
    return 0;
}

int CLI::printUsage() {
    services_.out << usageText;
    return 0;
}

} // namespace tidewell
