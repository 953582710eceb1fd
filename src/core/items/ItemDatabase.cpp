#include "core/items/ItemDatabase.h"

#include "core/items/Deduplication.h"
#include "core/items/InternetDate.h"
#include "core/items/ItemsJson.h"
#include "core/items/Utf8Text.h"
#include "core/notify/NotificationNames.h"
#include "core/platform/Error.h"
#include "core/platform/PathText.h"

#include <algorithm>

namespace tidewell {
namespace {

// Strings that are not valid UTF-8 cannot be written as JSON text.
void requireUtf8(const std::string& what, const std::string& text) {
    if (!Utf8Text::isValid(text))
        throw Error("The " + what + " " + Utf8Text::escapingInvalidBytes(text) +
                    " is not valid UTF-8, so it cannot be stored.");
}

void requireUtf8(const NotchItem& item) {
    requireUtf8("name", item.name);
    requireUtf8("path", item.path);
    requireUtf8("initials", item.initials);
    requireUtf8("colour", item.tintHex);
    requireUtf8("start command", item.launchCommand);
    if (item.iconPath)
        requireUtf8("icon path", *item.iconPath);
}

// A timestamp that sorts and suits a file name: 20250304T180741Z.
std::string compactTimestamp(Date date) {
    std::string text = InternetDate::format(date);
    std::erase_if(text, [](char c) { return c == '-' || c == ':'; });
    return text;
}

} // namespace

ItemDatabase::ItemDatabase(Services services, DataFolder folder)
    : services_(services), folder_(std::move(folder)),
      scanner_(services.files, services.imageFormats),
      iconCache_(services.files, folder_.iconsFolder()) {}

std::vector<NotchItem> ItemDatabase::load() {
    migrateLegacyLibraryIfNeeded();
    FolderIdentity folders(services_.files);
    FileContents contents = readItemsFile(folders);
    if (contents.hadDuplicates) {
        // Write the merged list back, under the lock and from a fresh read.
        try {
            modify([](std::vector<NotchItem>&) { return false; });
        } catch (const Error&) {
        }
    }
    return std::move(contents.items);
}

void ItemDatabase::save(const std::vector<NotchItem>& items) {
    modify([&items](std::vector<NotchItem>& current) {
        current = items;
        return true;
    });
}

void ItemDatabase::modify(const std::function<bool(std::vector<NotchItem>&)>& change) {
    Snapshot now = snapshot();
    modifyFrom(now, change);
}

// Project folders may be slow or hang (a network mount): they are examined here, before the
// items lock is taken, so that no other tool or the application waits on them. Records that
// appear in between are resolved under the lock.
ItemDatabase::Snapshot ItemDatabase::snapshot() {
    migrateLegacyLibraryIfNeeded();
    Snapshot result{.folders = FolderIdentity(services_.files)};
    result.file = readItemsFile(result.folders);
    return result;
}

// The file is read again under the lock only when another writer replaced it since the
// snapshot; otherwise the snapshot's records are the file's.
void ItemDatabase::modifyFrom(Snapshot& snapshot,
                              const std::function<bool(std::vector<NotchItem>&)>& change) {
    bool isSaved = false;
    {
        services_.files.createDirectories(folder_.path);
        const auto lock = services_.files.lockExclusive(folder_.itemsLock());
        const bool isUnchanged =
            snapshot.file.version &&
            services_.files.fileVersion(folder_.itemsFile()) == snapshot.file.version;
        FileContents contents =
            isUnchanged ? std::move(snapshot.file) : readItemsFile(snapshot.folders);
        if (contents.isUnreadable)
            throw Error("Cannot read " + folder_.itemsFile() + ", so it was left unchanged.");
        std::vector<NotchItem>& items = contents.items;
        isSaved = change(items);
        if (isSaved) {
            if (contents.isUndecodable)
                preserveUndecodableFile();
            write(tidewell::deduplicated(std::move(items), snapshot.folders), contents.bytes);
        } else if (contents.hadDuplicates) {
            try {
                write(items, contents.bytes);
            } catch (const Error&) {
            }
        }
    }
    if (isSaved)
        postItemsChanged();
}

// The icon is found and copied before the lock is taken, for the record the file showed
// then; should another writer have changed that record meanwhile, it is all done again.
NotchItem ItemDatabase::upsert(const UpsertRequest& request) {
    // Refused before an icon is copied for the record.
    requireUtf8("name", request.name.value_or(""));
    requireUtf8("start command", request.command);
    for (;;) {
        Snapshot now = snapshot();
        const std::string key = now.folders.identifier(request.path);
        const std::string folder = now.folders.normalizedPath(request.path);
        requireUtf8("path", folder);
        // Deduplicated paths are normalised already: one that reads as the folder names it,
        // and a stored one that is still current names no other folder.
        const auto isOfFolder = [&](const NotchItem& item) {
            return item.path == folder || (!now.folders.isStoredPathCurrent(item.path) &&
                                           now.folders.identifier(item.path) == key);
        };
        const std::vector<NotchItem>& before = now.file.items;
        const auto known = std::find_if(before.begin(), before.end(), isOfFolder);
        const std::optional<NotchItem> stored =
            known == before.end() ? std::nullopt : std::optional(*known);
        const IconChoice icon = chooseIcon(request, folder, stored);
        std::optional<NotchItem> result;
        modifyFrom(now, [&](std::vector<NotchItem>& items) {
            const auto found = std::find_if(items.begin(), items.end(), isOfFolder);
            const bool isUnchanged = found == items.end() ? !stored
                                                          : stored && found->id == stored->id &&
                                                                found->iconPath == stored->iconPath;
            if (!isUnchanged)
                return false;
            const Date time = services_.clock.now();
            if (found != items.end()) {
                update(*found, request, folder, icon, time);
                result = *found;
            } else {
                result = makeItem(request, folder, icon, time);
                items.push_back(*result);
            }
            requireUtf8(*result);
            return true;
        });
        if (result)
            return *result;
        // A copy made for a record that was never written is nobody's.
        if (!stored && icon.iconPath &&
            PathText::lastComponent(*icon.iconPath).starts_with(icon.id.text() + ".")) {
            try {
                services_.files.removeFile(*icon.iconPath);
            } catch (const Error&) {
            }
        }
    }
}

ItemDatabase::IconChoice ItemDatabase::chooseIcon(const UpsertRequest& request,
                                                  const std::string& folder,
                                                  const std::optional<NotchItem>& stored) const {
    if (!stored) {
        const Uuid id = Uuid::random();
        return {id, true,
                iconCache_.cache(request.icon ? request.icon : scanner_.bestIcon(folder), id)};
    }
    if (request.icon)
        return {stored->id, true, iconCache_.cache(request.icon, stored->id)};
    if (stored->iconPath && !iconCache_.isManaged(*stored->iconPath))
        return {stored->id, true, iconCache_.cache(stored->iconPath, stored->id)};
    return {stored->id};
}

void ItemDatabase::touch(const Uuid& id) {
    modify([&](std::vector<NotchItem>& items) {
        const auto found = std::find_if(items.begin(), items.end(),
                                        [&id](const NotchItem& item) { return item.id == id; });
        if (found == items.end())
            return false;
        found->lastOpenedAt = services_.clock.now();
        return true;
    });
}

// Copies are made before the lock is taken; a record whose icon changed meanwhile keeps it.
int ItemDatabase::cacheExternalIcons() {
    Snapshot now = snapshot();
    std::vector<std::pair<NotchItem, std::string>> copies;
    for (const NotchItem& item : now.file.items) {
        if (!item.iconPath || iconCache_.isManaged(*item.iconPath))
            continue;
        if (auto copy = iconCache_.cache(item.iconPath, item.id))
            copies.emplace_back(item, std::move(*copy));
    }
    int count = 0;
    modifyFrom(now, [&](std::vector<NotchItem>& items) {
        for (const std::pair<NotchItem, std::string>& copy : copies) {
            const NotchItem& before = copy.first;
            const auto found = std::find_if(items.begin(), items.end(), [&](const NotchItem& item) {
                return item.id == before.id && item.iconPath == before.iconPath;
            });
            if (found != items.end()) {
                found->iconPath = copy.second;
                ++count;
            }
        }
        return true;
    });
    return count;
}

std::vector<NotchItem> ItemDatabase::deduplicated(const std::vector<NotchItem>& items) const {
    FolderIdentity folders(services_.files);
    return tidewell::deduplicated(items, folders);
}

std::string ItemDatabase::folderIdentifier(const std::string& path) const {
    return FolderIdentity(services_.files).identifier(path);
}

void ItemDatabase::migrateLegacyLibraryIfNeeded() {
    FileSystem& files = services_.files;
    if (!files.exists(folder_.legacyItemsFile()) || files.exists(folder_.itemsFile()))
        return;
    try {
        files.createDirectories(folder_.path);
    } catch (const Error&) {
    }
    if (const auto legacyItems = files.readFile(folder_.legacyItemsFile())) {
        try {
            files.writeFileAtomically(folder_.itemsFile(), *legacyItems);
        } catch (const Error&) {
        }
    }
    if (files.isDirectory(folder_.legacyIconsFolder()) && !files.exists(folder_.iconsFolder())) {
        try {
            files.copyDirectory(folder_.legacyIconsFolder(), folder_.iconsFolder());
        } catch (const Error&) {
        }
    }
}

// The version is taken before the bytes are read: should the file change in between, the
// version is older than the bytes and the next comparison reads the file again.
ItemDatabase::FileContents ItemDatabase::readItemsFile(FolderIdentity& folders) const {
    FileContents contents{.version = services_.files.fileVersion(folder_.itemsFile())};
    auto bytes = services_.files.readFile(folder_.itemsFile());
    if (!bytes) {
        contents.isUnreadable = services_.files.exists(folder_.itemsFile());
        return contents;
    }
    auto items = ItemsJson::decode(*bytes);
    contents.bytes = std::move(*bytes);
    if (!items) {
        contents.isUndecodable = true;
        return contents;
    }
    const std::size_t decoded = items->size();
    if (contents.version)
        folders.trustPathsStoredAt(contents.version->modifiedNanoseconds);
    contents.items = tidewell::deduplicated(std::move(*items), folders);
    contents.hadDuplicates = contents.items.size() < decoded;
    return contents;
}

void ItemDatabase::write(const std::vector<NotchItem>& items, std::string& buffer) {
    services_.files.createDirectories(folder_.path);
    for (const NotchItem& item : items)
        requireUtf8(item);
    ItemsJson::encode(items, buffer);
    services_.files.writeFileAtomically(folder_.itemsFile(), buffer);
}

// Keeps a file that could not be read as items beside the new one, so nothing is lost; a copy
// kept earlier in the same second is not replaced.
void ItemDatabase::preserveUndecodableFile() {
    const std::string name =
        folder_.itemsFile() + ".corrupt-" + compactTimestamp(services_.clock.now());
    std::string copy = name;
    for (int number = 2; services_.files.exists(copy); ++number)
        copy = name + "-" + std::to_string(number);
    services_.files.copyFile(folder_.itemsFile(), copy);
}

void ItemDatabase::postItemsChanged() {
    services_.localCenter.post(notchItemsChanged);
    services_.distributedCenter.post(notchItemsChanged);
}

NotchItem ItemDatabase::makeItem(const UpsertRequest& request, const std::string& folder,
                                 const IconChoice& icon, Date now) const {
    std::string displayName = request.name ? *request.name : PathText::lastComponent(folder);
    if (displayName.empty())
        displayName = folder;
    NotchItem item;
    item.id = icon.id;
    item.iconPath = icon.iconPath;
    item.name = displayName;
    item.path = folder;
    item.initials = NotchItem::makeInitials(displayName);
    item.tintHex = NotchItem::makeTint(displayName);
    item.launchCommand = request.command;
    item.isFavorite = request.favorite;
    item.lastOpenedAt = now;
    item.createdAt = request.favorite ? now : now - std::chrono::seconds(2);
    return item;
}

void ItemDatabase::update(NotchItem& item, const UpsertRequest& request, const std::string& folder,
                          const IconChoice& icon, Date now) const {
    item.path = folder;
    item.lastOpenedAt = now;
    item.isFavorite = item.isFavorite || request.favorite;
    if (request.name && !request.name->empty()) {
        item.name = *request.name;
        item.initials = NotchItem::makeInitials(*request.name);
    }
    if (!request.command.empty())
        item.launchCommand = request.command;
    if (icon.isChanged)
        item.iconPath = icon.iconPath;
}

} // namespace tidewell
