#include "core/drag/FolderDropDecoder.h"

#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell::testing {

using FolderDropDecoder::ItemProvider;
using Paths = std::vector<std::string>;

TEST(FolderDropDecoder, FileUrlsNamingFoldersFormThePasteboardAndProvidersFollowItOrThePlainText) {
    TemporaryDirectory root;
    PosixFileSystem files;
    const std::string folder = root.makeFolder("my project");
    const std::string other = root.makeFolder("other");
    const std::string escaped = root.path() + "/my%20project";
    const std::string odd = root.makeFolder("a?\u00e9");
    const std::vector<std::string> lines = {
        "# dragged from the file manager",
        "file://" + escaped,
        "file://" + root.path() + "/a%3f%C3%A9",
        "file://localhost" + root.path() + "/./other/",
        "file://LOCALHOST" + other + "\n", // a bare LF ends a line too
        "file://example.org" + other,
        "https://example.org" + other,
        "file://" + root.path() + "/my%2project",
        "file://" + escaped + "%00",
        "file://" + root.write("notes.txt"),
        "file://" + other + "/../my%20project",
    };
    std::string uriList;
    for (const std::string& line : lines)
        uriList += line + "\r\n";
    EXPECT_EQ(FolderDropDecoder::directoryPathsFromDragPasteboard({.uriList = uriList}, files),
              (Paths{folder, odd, other, other, folder}));

    // The folders that decoding the drop's providers one by one yields, in drag order.
    const auto decodedProviders = [&](const DroppedData& data) {
        Paths paths;
        for (const ItemProvider& provider : FolderDropDecoder::itemProviders(data))
            if (auto path = FolderDropDecoder::path(provider, files))
                paths.push_back(*path);
        return paths;
    };
    // A line that is no valid URL still yields its folder once trimmed; a non-file URL none.
    const DroppedData trimmed{.uriList = "file://" + other + " \r\nhttps://example.org" + folder +
                                         "\r\nfile://" + escaped + "\r\n",
                              .plainText = folder};
    EXPECT_EQ(FolderDropDecoder::directoryPathsFromDragPasteboard(trimmed, files), (Paths{folder}));
    EXPECT_EQ(decodedProviders(trimmed), (Paths{other, folder}));
    const DroppedData plainText{.uriList = "# nothing\r\n", .plainText = other + "\n" + folder};
    EXPECT_EQ(decodedProviders(plainText), (Paths{other, folder}));
}

} // namespace tidewell::testing
