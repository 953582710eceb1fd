#include "gui/shelf/FavoritesModel.h"

#include "core/observe/Signal.h"
#include "core/store/ItemStore.h"
#include "gui/images/ProjectImageUrl.h"
#include "gui/images/TintColor.h"

#include <algorithm>

namespace tidewell {

namespace {

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

bool holds(const std::vector<NotchItem>& items, const Uuid& id) {
    return std::ranges::any_of(items, [&id](const NotchItem& item) { return item.id == id; });
}

} // namespace

struct FavoritesModel::State {
    IconCache iconCache;
    std::string applicationFolder;
    std::vector<NotchItem> favorites;
    Connection storeConnection;
};

FavoritesModel::FavoritesModel(ItemStore& store, const IconCache& iconCache,
                               QString applicationFolder)
    : store_(store), state_(std::make_unique<State>(State{
                         iconCache, applicationFolder.toStdString(), store.favorites(), {}})) {
    state_->storeConnection = store_.itemsChanged.connect([this] { reload(); });
}

FavoritesModel::~FavoritesModel() = default;

int FavoritesModel::count() const {
    return static_cast<int>(state_->favorites.size());
}

// Pinned and unpinned items become inserted and removed rows and a new order moved rows, so
// that tiles enter, leave and slide with the strip's transitions, and every other tile keeps
// its delegate (a tile being dragged among them too).
void FavoritesModel::reload() {
    const std::vector<NotchItem> favorites = store_.favorites();
    std::vector<NotchItem>& shown = state_->favorites;
    const int previousCount = count();
    for (int row = count() - 1; row >= 0; --row) {
        if (!holds(favorites, shown[static_cast<std::size_t>(row)].id)) {
            beginRemoveRows({}, row, row);
            shown.erase(shown.begin() + row);
            endRemoveRows();
        }
    }
    for (std::size_t row = 0; row < favorites.size(); ++row) {
        if (holds(shown, favorites[row].id))
            continue;
        const int at = static_cast<int>(std::min(row, shown.size()));
        beginInsertRows({}, at, at);
        shown.insert(shown.begin() + at, favorites[row]);
        endInsertRows();
    }
    moveIntoOrder(favorites);
    shown = favorites;
    if (!shown.empty())
        emit dataChanged(index(0), index(count() - 1));
    if (count() != previousCount)
        emit countChanged();
}

// `shown` holds the same items as `favorites`, perhaps in another order.
void FavoritesModel::moveIntoOrder(const std::vector<NotchItem>& favorites) {
    std::vector<NotchItem>& shown = state_->favorites;
    for (std::size_t row = 0; row < favorites.size(); ++row) {
        const auto from = std::ranges::find_if(
            shown.begin() + static_cast<std::ptrdiff_t>(row), shown.end(),
            [&](const NotchItem& item) { return item.id == favorites[row].id; });
        const int source = static_cast<int>(from - shown.begin());
        const int destination = static_cast<int>(row);
        if (source == destination)
            continue;
        beginMoveRows({}, source, source, {}, destination);
        std::rotate(shown.begin() + destination, from, from + 1);
        endMoveRows();
    }
}

int FavoritesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant FavoritesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const NotchItem& item = state_->favorites[static_cast<std::size_t>(index.row())];
    switch (role) {
    case ItemIdRole:
        return toQt(item.id.text());
    case Qt::DisplayRole:
    case NameRole:
        return toQt(item.name);
    case PathRole:
        return toQt(item.path);
    case InitialsRole:
        return toQt(item.initials);
    case TintRole:
        return tintColor(toQt(item.tintHex));
    case ImageSourceRole:
        return projectImageUrl(item, state_->iconCache, state_->applicationFolder);
    case HasStartCommandRole:
        return !item.launchCommand.empty();
    default:
        return {};
    }
}

QHash<int, QByteArray> FavoritesModel::roleNames() const {
    return {{ItemIdRole, "itemId"},
            {NameRole, "name"},
            {PathRole, "path"},
            {InitialsRole, "initials"},
            {TintRole, "tint"},
            {ImageSourceRole, "imageSource"},
            {HasStartCommandRole, "hasStartCommand"}};
}

} // namespace tidewell
