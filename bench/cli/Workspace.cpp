#include "Workspace.h"

#include "core/items/ItemsJson.h"
#include "core/platform/Error.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace tidewell::bench {
namespace {

// Records are spread over the past, a minute apart, from a fixed start.
constexpr std::int64_t firstRecordSeconds = 1'700'000'000;
constexpr std::int64_t secondsBetweenRecords = 60;

std::int64_t recordSeconds(int index) {
    return firstRecordSeconds + index * secondsBetweenRecords;
}

// A mix such as real shelves hold: some pinned and placed, some with a start command.
NotchItem makeItem(int index, const std::string& folder) {
    const std::string name = std::filesystem::path(folder).filename();
    const Date created{std::chrono::seconds(recordSeconds(index))};
    const bool pinned = index % 5 == 0;
    return {.id = Uuid::random(),
            .name = name,
            .path = folder,
            .initials = NotchItem::makeInitials(name),
            .tintHex = NotchItem::makeTint(name),
            .launchCommand = index % 3 == 0 ? "npm run dev" : "",
            .isFavorite = pinned,
            .createdAt = created,
            .lastOpenedAt = created + std::chrono::seconds(secondsBetweenRecords / 2),
            .sortOrder = pinned ? std::optional<std::int64_t>(index / 5) : std::nullopt};
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush())
        throw Error("Could not write the benchmark file " + path + ".");
}

std::string labelled(std::string program, const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments)
        program += " " + argument;
    return program;
}

std::size_t lineCount(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

Workspace::Workspace(Programs programs, int folderCount, std::string sessionBus)
    : programs_(std::move(programs)), sessionBus_(std::move(sessionBus)) {
    root_.makeFolder("home");
    root_.makeFolder("config");
    for (int index = 0; index < folderCount; ++index)
        std::filesystem::create_directories(projectFolder(index));
    // A user's project folders were made long before the items file was last written. The
    // tool looks again at every stored folder whose parent changed less than 5 s before that
    // write, so the items files are written only once that time has passed.
    if (folderCount > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5100));
}

std::string Workspace::targetFolder(int records) const {
    return projectFolder(records - 1);
}

void Workspace::prepareTide(int records) const {
    std::vector<NotchItem> items;
    for (int index = 0; index < records; ++index)
        items.push_back(makeItem(index, projectFolder(index)));
    writeFile(tideDataFolder(records) + "/items.json", ItemsJson::encode(items));
}

void Workspace::prepareZoxide(int records) const {
    std::string lines;
    for (int index = 0; index < records; ++index)
        lines += projectFolder(index) + "|" + std::to_string(1 + index % 10) + "|" +
                 std::to_string(recordSeconds(index)) + "\n";
    const std::string zFile = zoxideDataFolder(records) + ".z";
    writeFile(zFile, lines);
    std::filesystem::create_directories(zoxideDataFolder(records));
    run(zoxide(records, {"import", zFile}));
    const std::size_t listed = lineCount(capturedOutput(zoxide(records, {"query", "-l"})));
    if (listed != static_cast<std::size_t>(records))
        throw std::runtime_error("zoxide lists " + std::to_string(listed) + " folders, not " +
                                 std::to_string(records));
}

std::string Workspace::tideDataFolder(int records) const {
    return tideDataHome(records) + "/Tidewell";
}

Command Workspace::tide(int records, const std::vector<std::string>& arguments) const {
    Command command{.label = labelled("tide", arguments),
                    .arguments = {programs_.tide},
                    .environment = baseEnvironment(),
                    .workingFolder = targetFolder(records)};
    command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
    command.environment.push_back("XDG_DATA_HOME=" + tideDataHome(records));
    command.environment.push_back("XDG_CONFIG_HOME=" + root_.path() + "/config");
    if (!sessionBus_.empty())
        command.environment.push_back("DBUS_SESSION_BUS_ADDRESS=" + sessionBus_);
    return command;
}

Command Workspace::zoxideAdd(int records) const {
    return zoxide(records, {"add", targetFolder(records)});
}

Command Workspace::durableFloor(int records) const {
    return {.label = "durable floor",
            .arguments = {programs_.durableFloor, tideDataFolder(records)},
            .environment = baseEnvironment()};
}

Command Workspace::trueCommand() const {
    return {.label = "/bin/true", .arguments = {"/bin/true"}, .environment = baseEnvironment()};
}

Command Workspace::zoxide(int records, const std::vector<std::string>& arguments) const {
    Command command{.label = labelled("zoxide", arguments),
                    .arguments = {"/usr/bin/zoxide"},
                    .environment = baseEnvironment()};
    command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
    command.environment.push_back("_ZO_DATA_DIR=" + zoxideDataFolder(records));
    // Far above any total rank here, so that zoxide never ages entries away mid-run.
    command.environment.push_back("_ZO_MAXAGE=1000000000");
    return command;
}

std::string Workspace::projectFolder(int index) const {
    char name[32];
    std::snprintf(name, sizeof name, "project-%05d", index);
    return root_.path() + "/projects/" + name;
}

std::string Workspace::tideDataHome(int records) const {
    return root_.path() + "/tide-" + std::to_string(records);
}

std::string Workspace::zoxideDataFolder(int records) const {
    return root_.path() + "/zoxide-" + std::to_string(records);
}

std::vector<std::string> Workspace::baseEnvironment() const {
    return {"PATH=/usr/bin:/bin", "HOME=" + root_.path() + "/home"};
}

} // namespace tidewell::bench
