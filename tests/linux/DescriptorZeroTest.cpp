#include "linux/FileDescriptor.h"
#include "linux/PosixFileSystem.h"
#include "linux/SessionBusPoster.h"
#include "linux/SingleInstanceGuard.h"
#include "support/PrivateSessionBus.h"
#include "support/ServeBus.h"
#include "support/TemporaryDirectory.h"

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace tidewell::testing {

// A program started with its standard input closed gets descriptor 0 from its first open:
// every file and bus operation takes it for the valid descriptor it is.
TEST(DescriptorZero, FilesAndPostsWorkWhenStandardInputIsClosed) {
    PrivateSessionBus bus;
    SdBusNotificationCenter receiver;
    int posts = 0;
    receiver.addObserver("Tidewell.itemsChanged", [&] { ++posts; });
    TemporaryDirectory root;
    PosixFileSystem files;
    const std::string file = root.path() + "/file";
    const std::vector<std::function<void()>> operations = {
        [&] { files.writeFileAtomically(file, "bytes"); },
        [&] { EXPECT_EQ(files.readFile(file), "bytes"); },
        [&] { files.copyFile(file, file + ".copy"); },
        [&] { files.writeNewPrivateFile(file + ".private", "private"); },
        [&] { EXPECT_NE(files.lockExclusive(file + ".lock"), nullptr); },
        [&] {
            EXPECT_NE(SingleInstanceGuard::acquire(DataFolder({.applicationSupport = root.path()})),
                      nullptr);
        },
        [&] { SessionBusPoster().post("Tidewell.itemsChanged"); },
    };
    const FileDescriptor input(::fcntl(0, F_DUPFD_CLOEXEC, 3));
    for (std::size_t index = 0; index < operations.size(); ++index) {
        ::close(0);
        EXPECT_NO_THROW(operations[index]()) << "operation " << index;
        ::dup2(input.get(), 0);
    }
    EXPECT_EQ(files.readFile(file + ".copy"), "bytes");
    EXPECT_EQ(files.readFile(file + ".private"), "private");
    EXPECT_TRUE(serveUntil(receiver, [&] { return posts == 1; }));
}

} // namespace tidewell::testing
