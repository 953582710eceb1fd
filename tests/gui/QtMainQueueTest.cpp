#include "gui/platform/QtMainQueue.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tidewell {
namespace {

using namespace std::chrono_literals;

// Tasks posted now run at the next turn of the loop in order, delayed ones by due time and
// never early; cancelled ones and those of a destroyed queue never run.
TEST(QtMainQueue, RunsTasksInOrderAndByDueTimeButNotCancelledOrOrphanedOnes) {
    QtMainQueue queue;
    QEventLoop loop;
    QElapsedTimer sincePosting;
    sincePosting.start();
    std::vector<std::string> ran;
    std::vector<int> posted;
    qint64 longRanAfter = 0;
    constexpr auto longDelay = 12900us;
    auto doomed = std::make_unique<QtMainQueue>();
    doomed->post([&] { ran.push_back("orphan"); });
    doomed->postAfter(1ms, [&] { ran.push_back("orphan"); });
    doomed.reset();
    queue.postAfter(longDelay, [&] {
        longRanAfter = sincePosting.nsecsElapsed();
        ran.push_back("long");
        loop.quit();
    });
    queue.postAfter(3ms, [&] { ran.push_back("short"); });
    queue.cancel(queue.postAfter(6ms, [&] { ran.push_back("cancelled"); }));
    queue.post([&] { posted.push_back(1); });
    queue.post([&] {
        posted.push_back(2);
        queue.post([&] { posted.push_back(4); });
    });
    queue.post([&] { posted.push_back(3); });
    EXPECT_TRUE(posted.empty()) << "posting runs nothing at once";

    QTimer::singleShot(1000, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(posted, (std::vector{1, 2, 3, 4}));
    EXPECT_EQ(ran, (std::vector<std::string>{"short", "long"}));
    EXPECT_GE(longRanAfter, std::chrono::nanoseconds(longDelay).count());
}

} // namespace
} // namespace tidewell
