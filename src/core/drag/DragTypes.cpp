#include "core/drag/DragTypes.h"

#include "core/drag/ShelfItemMove.h"

#include <algorithm>

namespace tidewell::DragTypes {

bool isTileMove(const std::vector<std::string>& formats) {
    return std::find(formats.begin(), formats.end(), shelfItemMoveType) != formats.end();
}

bool offersFolder(const std::vector<std::string>& formats) {
    return std::any_of(formats.begin(), formats.end(), [](const std::string& format) {
        return format == "text/uri-list" || format == "text/plain" ||
               format.starts_with("text/plain;charset=");
    });
}

} // namespace tidewell::DragTypes
