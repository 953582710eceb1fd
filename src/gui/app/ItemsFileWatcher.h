#pragma once

#include "core/items/DataFolder.h"
#include "core/notify/NotificationCenter.h"

#include <QFileSystemWatcher>
#include <optional>
#include <string>
#include <tuple>

namespace tidewell {

// Watches the items file, so that a change made where no session bus carries the news
// (another session, a tool without a bus, an edit by hand) still reaches the store: each
// change of the file posts "Tidewell.itemsChanged" on the in-process centre. Replacing the
// file by a rename, as every save does, is seen through the data folder. The data folder
// must exist: the application's single-instance lock lives in it.
class ItemsFileWatcher {
public:
    ItemsFileWatcher(const DataFolder& folder, NotificationCenter& localCenter);

private:
    // What tells one version of the file from another: device, inode, size and
    // modification time in nanoseconds.
    using Version = std::tuple<unsigned long, unsigned long, long, long, long>;

    void folderOrFileChanged();
    void watchItemsFile();
    std::optional<Version> itemsFileVersion() const;

    std::string itemsFile_;
    NotificationCenter& localCenter_;
    QFileSystemWatcher watcher_;
    std::optional<Version> version_;
};

} // namespace tidewell
