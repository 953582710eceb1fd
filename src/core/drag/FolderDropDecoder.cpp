#include "core/drag/FolderDropDecoder.h"

#include "core/items/Utf8Text.h"
#include "core/platform/FileUrl.h"
#include "core/platform/PathText.h"

#include <string_view>

namespace tidewell::FolderDropDecoder {
namespace {

using FileUrl::Url;

// The lines of `text`, each without its LF or CRLF, empty ones left out.
std::vector<std::string_view> lines(std::string_view text) {
    std::vector<std::string_view> result;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!line.empty())
            result.push_back(line);
    }
    return result;
}

// RFC 2483: "#" starts a comment line.
std::vector<std::string_view> uriListLines(const DroppedData& data) {
    std::vector<std::string_view> result;
    if (data.uriList)
        for (const std::string_view line : lines(*data.uriList))
            if (!line.starts_with('#'))
                result.push_back(line);
    return result;
}

std::string_view trimmed(std::string_view text, std::string_view characters) {
    const std::size_t first = text.find_first_not_of(characters);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

// Data: the bytes of an absolute URL; else text, trimmed of NULs and then of blanks and
// line breaks, that is a file URL or an absolute path.
std::optional<Url> urlFromData(std::string_view bytes) {
    if (auto url = FileUrl::parse(bytes))
        return url;
    if (!Utf8Text::isValid(bytes))
        return std::nullopt;
    using namespace std::string_view_literals;
    const std::string_view text = trimmed(trimmed(bytes, "\0"sv), " \t\n\r\v\f");
    if (text.starts_with("file:"))
        return FileUrl::parse(text);
    if (text.starts_with('/'))
        return Url{std::string(text)};
    return std::nullopt;
}

// A string: a file URL, or else a path taken as it is (relative to the current directory).
std::optional<Url> urlFromString(const std::string& text, const FileSystem& files) {
    if (text.starts_with("file:"))
        if (auto url = FileUrl::parse(text))
            return url;
    return Url{PathText::absolute(text, files.currentDirectory())};
}

std::optional<Url> url(const ProvidedItem& item, const FileSystem& files) {
    return item.kind == ProvidedItem::Kind::data ? urlFromData(item.bytes)
                                                 : urlFromString(item.bytes, files);
}

// The standardized path (not resolved) when it names a directory, following links. A NUL
// would cut the path short where the system reads it.
std::optional<std::string> directoryPath(const Url& url, const FileSystem& files) {
    if (!url.localPath || url.localPath->find('\0') != std::string::npos)
        return std::nullopt;
    std::string path = PathText::standardized(*url.localPath);
    if (!files.isDirectory(path))
        return std::nullopt;
    return path;
}

ProvidedItem dataItem(std::string_view bytes) {
    return {ProvidedItem::Kind::data, std::string(bytes)};
}

} // namespace

std::vector<std::string> directoryPathsFromDragPasteboard(const DroppedData& data,
                                                          const FileSystem& files) {
    std::vector<std::string> paths;
    for (const std::string_view line : uriListLines(data)) {
        const auto url = FileUrl::parse(line);
        if (!url)
            continue;
        if (auto path = directoryPath(*url, files))
            paths.push_back(std::move(*path));
    }
    return paths;
}

std::vector<ItemProvider> itemProviders(const DroppedData& data) {
    std::vector<ItemProvider> providers;
    for (const std::string_view line : uriListLines(data)) {
        ItemProvider& provider = providers.emplace_back();
        if (line.starts_with("file:"))
            provider.fileURLItem = dataItem(line);
        if (FileUrl::parse(line))
            provider.urlObject = std::string(line);
        provider.urlItem = dataItem(line);
    }
    if (providers.empty() && data.plainText)
        for (const std::string_view line : lines(*data.plainText))
            providers.push_back(
                {.urlItem = ProvidedItem{ProvidedItem::Kind::string, std::string(line)}});
    return providers;
}

std::optional<std::string> path(const ItemProvider& provider, const FileSystem& files) {
    if (provider.fileURLItem)
        if (const auto found = url(*provider.fileURLItem, files))
            return directoryPath(*found, files);
    if (provider.urlObject)
        if (const auto found = FileUrl::parse(*provider.urlObject))
            return directoryPath(*found, files);
    if (provider.urlItem)
        if (const auto found = url(*provider.urlItem, files))
            return directoryPath(*found, files);
    return std::nullopt;
}

} // namespace tidewell::FolderDropDecoder
