#pragma once

#include <QAbstractListModel>
#include <memory>
#include <vector>

namespace tidewell {

class IconCache;
class ItemStore;
struct NotchItem;

// The pinned items as the shelf's tiles show them, in the store's order.
class FavoritesModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    enum Role {
        ItemIdRole = Qt::UserRole + 1,
        NameRole,
        PathRole,
        InitialsRole,
        TintRole,
        ImageSourceRole, // a file URL, or empty when the initials are drawn
        HasStartCommandRole,
    };

    // `applicationFolder` holds the images the application ships.
    FavoritesModel(ItemStore& store, const IconCache& iconCache, QString applicationFolder);
    ~FavoritesModel() override;

    int count() const;
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    void reload();
    void moveIntoOrder(const std::vector<NotchItem>& favorites);

    // Kept out of this header: the meta-object compiler cannot read the core's C++20 headers.
    struct State;

    ItemStore& store_;
    std::unique_ptr<State> state_;
};

} // namespace tidewell
