#pragma once

#include <QAbstractListModel>
#include <QUrl>
#include <memory>
#include <vector>

namespace tidewell {

class FolderChooser;
class IconCache;
class ImageChooser;
class ItemStore;
struct NotchItem;

// The settings window's project rows: every item of the store, in the store's order, each
// edited through a row of its own that writes through at once. An edit changes a row's data
// in place, so the text field being typed in keeps its cursor; the rows are made anew only
// when items come or go.
class ItemSettingsModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    enum Role {
        ItemIdRole = Qt::UserRole + 1,
        NameRole,
        PathRole,
        IsFavoriteRole,
        InitialsRole,
        TintHexRole,
        TintRole, // the colour the tint text gives
        LaunchCommandRole,
        IconSourceRole, // as the shelf's tile loads it; empty when the initials are drawn
        ShowsDetailsRole,
    };

    struct Services {
        ItemStore& store;
        const IconCache& iconCache;
        FolderChooser& folders;
        ImageChooser& images;
        // Holds the images the application ships.
        QString applicationFolder;
    };

    explicit ItemSettingsModel(Services services);
    ~ItemSettingsModel() override;

    int count() const;
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE void setName(int row, const QString& value);
    Q_INVOKABLE void setInitials(int row, const QString& value);
    Q_INVOKABLE void setTintHex(int row, const QString& value);
    Q_INVOKABLE void setLaunchCommand(int row, const QString& value);
    Q_INVOKABLE void setIsFavorite(int row, bool value);
    Q_INVOKABLE void toggleDetails(int row);
    Q_INVOKABLE void chooseIcon(int row);
    Q_INVOKABLE void chooseFolder(int row);
    Q_INVOKABLE void remove(int row);

signals:
    void countChanged();

private:
    // Kept out of this header: the meta-object compiler cannot read the core's C++20 headers.
    struct State;
    struct Entry;

    void reload();
    void updateInPlace(const std::vector<NotchItem>& items);
    void rebuild(const std::vector<NotchItem>& items);
    std::unique_ptr<Entry> makeEntry(const NotchItem& item);
    QUrl iconSourceOf(const NotchItem& item) const;
    Entry* entry(int row) const;
    void retire(std::vector<std::unique_ptr<Entry>> entries);

    Services services_;
    std::unique_ptr<State> state_;
};

} // namespace tidewell
