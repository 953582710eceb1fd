#include "gui/app/ItemsFileWatcher.h"

#include "core/notify/NotificationNames.h"

#include <QFile>
#include <sys/stat.h>

namespace tidewell {

ItemsFileWatcher::ItemsFileWatcher(const DataFolder& folder, NotificationCenter& localCenter)
    : itemsFile_(folder.itemsFile()), localCenter_(localCenter), version_(itemsFileVersion()) {
    watcher_.addPath(QFile::decodeName(folder.path.c_str()));
    watchItemsFile();
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged,
                     [this] { folderOrFileChanged(); });
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged,
                     [this] { folderOrFileChanged(); });
}

// The folder also changes for the lock, temporary and icon files: only a new version of
// the items file is news.
void ItemsFileWatcher::folderOrFileChanged() {
    watchItemsFile();
    const std::optional<Version> version = itemsFileVersion();
    if (version == version_)
        return;
    version_ = version;
    localCenter_.post(notchItemsChanged);
}

// A file replaced by a rename is a new file: the watch on the old one has ended.
void ItemsFileWatcher::watchItemsFile() {
    const QString path = QFile::decodeName(itemsFile_.c_str());
    if (!watcher_.files().contains(path) && QFile::exists(path))
        watcher_.addPath(path);
}

std::optional<ItemsFileWatcher::Version> ItemsFileWatcher::itemsFileVersion() const {
    struct stat status {};
    if (::stat(itemsFile_.c_str(), &status) != 0)
        return std::nullopt;
    return Version(status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                   status.st_mtim.tv_nsec);
}

} // namespace tidewell
