#pragma once

#include "core/icons/IconCache.h"
#include "core/icons/IconScanner.h"
#include "core/items/DataFolder.h"
#include "core/items/FolderIdentity.h"
#include "core/items/NotchItem.h"
#include "core/notify/NotificationCenter.h"
#include "core/platform/Clock.h"
#include "core/platform/DistributedNotificationCenter.h"
#include "core/platform/FileSystem.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tidewell {

struct UpsertRequest {
    std::string path;
    bool favorite = false;
    std::optional<std::string> name;
    std::string command;
    std::optional<std::string> icon;
};

// The only code that reads or writes the items file. It keeps nothing in memory: every
// operation reads the whole file and writes it whole. Each read-modify-write holds the
// items lock, so concurrent tools and the application never lose each other's changes;
// every save tells both notification centres.
class ItemDatabase {
public:
    struct Services {
        FileSystem& files;
        const Clock& clock;
        NotificationCenter& localCenter;
        NotificationPoster& distributedCenter;
        const ImageFormats& imageFormats;
    };

    ItemDatabase(Services services, DataFolder folder);

    std::string itemsURL() const { return folder_.itemsFile(); }
    std::string showOnLaunchFlagURL() const { return folder_.showOnLaunchFlag(); }
    const DataFolder& dataFolder() const { return folder_; }

    // Never fails: an absent, unreadable or undecodable file reads as an empty list.
    std::vector<NotchItem> load();
    // The operations below throw Error when the file cannot be written.
    void save(const std::vector<NotchItem>& items);
    // Reads the items under the lock and lets the change edit them; saves when it
    // answers true.
    void modify(const std::function<bool(std::vector<NotchItem>&)>& change);
    NotchItem upsert(const UpsertRequest& request);
    void touch(const Uuid& id);
    int cacheExternalIcons();

    std::vector<NotchItem> deduplicated(const std::vector<NotchItem>& items) const;
    std::string folderIdentifier(const std::string& path) const;
    void migrateLegacyLibraryIfNeeded();

private:
    // The records of the file, deduplicated, and the version of the file they came from.
    struct FileContents {
        std::vector<NotchItem> items;
        std::string bytes; // as read; their memory takes the text written back
        std::optional<FileVersion> version;
        bool isUnreadable = false;
        bool isUndecodable = false;
        bool hadDuplicates = false;
    };
    // The records as read without the lock, with their folders resolved.
    struct Snapshot {
        FolderIdentity folders;
        FileContents file;
    };
    // What an upsert prepared for the record of one id before taking the lock.
    struct IconChoice {
        Uuid id;
        bool isChanged = false;
        std::optional<std::string> iconPath;
    };

    Snapshot snapshot();
    void modifyFrom(Snapshot& snapshot, const std::function<bool(std::vector<NotchItem>&)>& change);
    IconChoice chooseIcon(const UpsertRequest& request, const std::string& folder,
                          const std::optional<NotchItem>& stored) const;
    FileContents readItemsFile(FolderIdentity& folders) const;
    void write(const std::vector<NotchItem>& items, std::string& buffer);
    void preserveUndecodableFile();
    void postItemsChanged();
    NotchItem makeItem(const UpsertRequest& request, const std::string& folder,
                       const IconChoice& icon, Date now) const;
    void update(NotchItem& item, const UpsertRequest& request, const std::string& folder,
                const IconChoice& icon, Date now) const;

    Services services_;
    DataFolder folder_;
    IconScanner scanner_;
    IconCache iconCache_;
};

} // namespace tidewell
