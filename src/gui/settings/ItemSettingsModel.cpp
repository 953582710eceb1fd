#include "gui/settings/ItemSettingsModel.h"

#include "core/settings/ItemSettingsRow.h"
#include "gui/images/ProjectImageUrl.h"
#include "gui/images/TintColor.h"

#include <QFile>
#include <algorithm>

namespace tidewell {

namespace {

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

struct ItemSettingsModel::Entry {
    NotchItem item;
    QUrl iconSource;
    std::unique_ptr<ItemSettingsRow> row;
    Connection rowConnection;
};

struct ItemSettingsModel::State {
    std::vector<std::unique_ptr<Entry>> entries;
    Connection storeConnection;
};

ItemSettingsModel::ItemSettingsModel(Services services)
    : services_(std::move(services)), state_(std::make_unique<State>()) {
    state_->storeConnection = services_.store.itemsChanged.connect([this] { reload(); });
    reload();
}

ItemSettingsModel::~ItemSettingsModel() = default;

int ItemSettingsModel::count() const {
    return static_cast<int>(state_->entries.size());
}

int ItemSettingsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

// The same ids in the same order change rows in place; anything else makes the rows anew.
void ItemSettingsModel::reload() {
    const std::vector<NotchItem>& items = services_.store.items();
    const bool sameIds =
        std::ranges::equal(items, state_->entries, [](const NotchItem& item, const auto& entry) {
            return item.id == entry->item.id;
        });
    if (sameIds)
        updateInPlace(items);
    else
        rebuild(items);
}

void ItemSettingsModel::updateInPlace(const std::vector<NotchItem>& items) {
    for (std::size_t row = 0; row < items.size(); ++row) {
        Entry& entry = *state_->entries[row];
        const QUrl iconSource = iconSourceOf(items[row]);
        if (entry.item == items[row] && entry.iconSource == iconSource)
            continue;
        entry.item = items[row];
        entry.iconSource = iconSource;
        const QModelIndex changed = index(static_cast<int>(row));
        emit dataChanged(changed, changed);
    }
}

// The rows (and their open details) of the items that stay are kept.
void ItemSettingsModel::rebuild(const std::vector<NotchItem>& items) {
    const int previousCount = count();
    beginResetModel();
    std::vector<std::unique_ptr<Entry>> previous = std::move(state_->entries);
    state_->entries.clear();
    for (const NotchItem& item : items) {
        const auto kept = std::ranges::find_if(
            previous, [&](const auto& entry) { return entry && entry->item.id == item.id; });
        auto entry = kept != previous.end() ? std::move(*kept) : makeEntry(item);
        entry->item = item;
        entry->iconSource = iconSourceOf(item);
        state_->entries.push_back(std::move(entry));
    }
    endResetModel();
    retire(std::move(previous));
    if (count() != previousCount)
        emit countChanged();
}

std::unique_ptr<ItemSettingsModel::Entry> ItemSettingsModel::makeEntry(const NotchItem& item) {
    auto entry = std::make_unique<Entry>();
    entry->row = std::make_unique<ItemSettingsRow>(
        ItemSettingsRow::Services{services_.store, services_.iconCache, services_.folders,
                                  services_.images},
        item.id);
    entry->rowConnection = entry->row->changed.connect([this, raw = entry.get()] {
        const auto& entries = state_->entries;
        const auto found = std::ranges::find_if(
            entries, [raw](const auto& candidate) { return candidate.get() == raw; });
        if (found == entries.end())
            return;
        const QModelIndex changed = index(static_cast<int>(found - entries.begin()));
        emit dataChanged(changed, changed, {ShowsDetailsRole});
    });
    return entry;
}

QUrl ItemSettingsModel::iconSourceOf(const NotchItem& item) const {
    return projectImageUrl(item, services_.iconCache, services_.applicationFolder.toStdString());
}

// A row that removes its own item is still running when the store tells of it: the rows of
// items that went away live until the event loop's next turn.
void ItemSettingsModel::retire(std::vector<std::unique_ptr<Entry>> entries) {
    auto retired = std::make_shared<std::vector<std::unique_ptr<Entry>>>(std::move(entries));
    QMetaObject::invokeMethod(
        this, [retired] { retired->clear(); }, Qt::QueuedConnection);
}

ItemSettingsModel::Entry* ItemSettingsModel::entry(int row) const {
    if (row < 0 || row >= count())
        return nullptr;
    return state_->entries[static_cast<std::size_t>(row)].get();
}

QVariant ItemSettingsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Entry& shown = *entry(index.row());
    const NotchItem& item = shown.item;
    switch (role) {
    case ItemIdRole:
        return toQt(item.id.text());
    case Qt::DisplayRole:
    case NameRole:
        return toQt(item.name);
    case PathRole:
        return QFile::decodeName(QByteArray::fromStdString(item.path));
    case IsFavoriteRole:
        return item.isFavorite;
    case InitialsRole:
        return toQt(item.initials);
    case TintHexRole:
        return toQt(item.tintHex);
    case TintRole:
        return tintColor(toQt(item.tintHex));
    case LaunchCommandRole:
        return toQt(item.launchCommand);
    case IconSourceRole:
        return shown.iconSource;
    case ShowsDetailsRole:
        return shown.row->showsDetails();
    default:
        return {};
    }
}

QHash<int, QByteArray> ItemSettingsModel::roleNames() const {
    return {{ItemIdRole, "itemId"},
            {NameRole, "name"},
            {PathRole, "path"},
            {IsFavoriteRole, "isFavorite"},
            {InitialsRole, "initials"},
            {TintHexRole, "tintHex"},
            {TintRole, "tint"},
            {LaunchCommandRole, "launchCommand"},
            {IconSourceRole, "iconSource"},
            {ShowsDetailsRole, "showsDetails"}};
}

// Each edit may reload the store and so the rows: the row is looked up for every call.
void ItemSettingsModel::setName(int row, const QString& value) {
    if (Entry* edited = entry(row))
        edited->row->saving(&NotchItem::name, value.toStdString());
}

void ItemSettingsModel::setInitials(int row, const QString& value) {
    if (Entry* edited = entry(row))
        edited->row->saving(&NotchItem::initials, value.toStdString());
}

void ItemSettingsModel::setTintHex(int row, const QString& value) {
    if (Entry* edited = entry(row))
        edited->row->saving(&NotchItem::tintHex, value.toStdString());
}

void ItemSettingsModel::setLaunchCommand(int row, const QString& value) {
    if (Entry* edited = entry(row))
        edited->row->saving(&NotchItem::launchCommand, value.toStdString());
}

void ItemSettingsModel::setIsFavorite(int row, bool value) {
    if (Entry* edited = entry(row))
        edited->row->saving(&NotchItem::isFavorite, value);
}

void ItemSettingsModel::toggleDetails(int row) {
    if (Entry* edited = entry(row))
        edited->row->toggleDetails();
}

void ItemSettingsModel::chooseIcon(int row) {
    if (Entry* edited = entry(row))
        edited->row->chooseIcon();
}

void ItemSettingsModel::chooseFolder(int row) {
    if (Entry* edited = entry(row))
        edited->row->chooseFolder();
}

void ItemSettingsModel::remove(int row) {
    if (Entry* edited = entry(row))
        edited->row->remove();
}

} // namespace tidewell
