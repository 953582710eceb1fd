#pragma once

#include "core/icons/IconCache.h"
#include "core/items/NotchItem.h"
#include "core/observe/Signal.h"
#include "core/platform/FolderChooser.h"
#include "core/platform/ImageChooser.h"
#include "core/store/ItemStore.h"

#include <optional>
#include <string>

namespace tidewell {

// The editing of one project in the settings window. Every edit is written through at
// once, exactly as given: the store's item changes and the items file is saved.
class ItemSettingsRow {
public:
    struct Services {
        ItemStore& store;
        const IconCache& iconCache;
        FolderChooser& folders;
        ImageChooser& images;
    };

    ItemSettingsRow(Services services, Uuid id);

    const Uuid& id() const { return id_; }
    // The item as the store has it now; none once it is gone.
    std::optional<NotchItem> item() const;

    // Writes one field, e.g. saving(&NotchItem::name, "Site").
    void saving(std::string NotchItem::*field, const std::string& value);
    void saving(bool NotchItem::*field, bool value);

    bool showsDetails() const { return showsDetails_; }
    void toggleDetails();

    void chooseIcon();
    void chooseFolder();
    void remove();

    // After showsDetails changes; item changes come through the store's itemsChanged.
    Signal<> changed;

private:
    void writeThrough(const std::function<void(NotchItem&)>& edit);

    Services services_;
    Uuid id_;
    bool showsDetails_ = false;
};

} // namespace tidewell
