#pragma once

#include <string>
#include <vector>

namespace tidewell {

// What a drag offers, told from its MIME formats.
namespace DragTypes {

// A tile dragged within the shelf.
bool isTileMove(const std::vector<std::string>& formats);
// File locations ("text/uri-list") or text that may name them ("text/plain", with or without
// a charset).
bool offersFolder(const std::vector<std::string>& formats);

} // namespace DragTypes
} // namespace tidewell
