#pragma once

#include "core/drag/DropInfo.h"
#include "core/platform/FileSystem.h"

#include <optional>
#include <string>
#include <vector>

namespace tidewell {

// Turns what a drag carries into the paths of the folders it names.
//
// A drop is read two ways. First as a pasteboard: the file URLs of its text/uri-list.
// Failing that, as item providers in drag order: one per uri-list line, or, when the
// uri-list has none, one per line of plain text; each offers its text in several
// representations that are tried in turn.
namespace FolderDropDecoder {

struct ProvidedItem {
    enum class Kind { data, string };
    Kind kind;
    std::string bytes;
};

// The representations of one dragged item, as the decoding tries them.
struct ItemProvider {
    std::optional<ProvidedItem> fileURLItem;
    std::optional<std::string> urlObject; // the URL text it can load as an object
    std::optional<ProvidedItem> urlItem;
};

// The folders among the file URLs, in drag order; non-file URLs, lines that do not parse
// and paths that are not directories are skipped.
std::vector<std::string> directoryPathsFromDragPasteboard(const DroppedData& data,
                                                          const FileSystem& files);
std::vector<ItemProvider> itemProviders(const DroppedData& data);
// The folder one provider names, if any. Runs off the main thread.
std::optional<std::string> path(const ItemProvider& provider, const FileSystem& files);

} // namespace FolderDropDecoder
} // namespace tidewell
