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

// Runs the event loop until a task quits it; false when none did within a second.
bool runUntilQuit(QEventLoop& loop) {
    bool timedOut = false;
    QTimer::singleShot(1000, &loop, [&] {
        timedOut = true;
        loop.quit();
    });
    loop.exec();
    return !timedOut;
}

TEST(QtMainQueue, PostedTasksRunAtTheNextTurnOfTheLoopInOrder) {
    QtMainQueue queue;
    QEventLoop loop;
    std::vector<int> ran;
    queue.post([&] { ran.push_back(1); });
    queue.post([&] {
        ran.push_back(2);
        queue.post([&] {
            ran.push_back(4);
            loop.quit();
        });
    });
    queue.post([&] { ran.push_back(3); });
    EXPECT_TRUE(ran.empty()) << "posting runs nothing at once";

    ASSERT_TRUE(runUntilQuit(loop));
    EXPECT_EQ(ran, (std::vector{1, 2, 3, 4}));
}

TEST(QtMainQueue, DelayedTasksRunByDueTimeNeverEarlyAndCanBeCancelled) {
    QtMainQueue queue;
    QEventLoop loop;
    QElapsedTimer sincePosting;
    sincePosting.start();
    std::vector<std::string> ran;
    qint64 longRanAfter = 0;
    constexpr auto longDelay = 12900us;
    queue.postAfter(longDelay, [&] {
        longRanAfter = sincePosting.nsecsElapsed();
        ran.push_back("long");
        loop.quit();
    });
    const auto shortId = queue.postAfter(3ms, [&] { ran.push_back("short"); });
    const auto cancelledId = queue.postAfter(6ms, [&] { ran.push_back("cancelled"); });
    queue.cancel(cancelledId);
    EXPECT_NE(shortId, cancelledId);

    ASSERT_TRUE(runUntilQuit(loop));
    EXPECT_EQ(ran, (std::vector<std::string>{"short", "long"}));
    EXPECT_GE(longRanAfter, std::chrono::nanoseconds(longDelay).count());
}

TEST(QtMainQueue, TasksOfADestroyedQueueNeverRun) {
    std::vector<std::string> ran;
    auto doomed = std::make_unique<QtMainQueue>();
    doomed->post([&] { ran.push_back("posted"); });
    doomed->postAfter(1ms, [&] { ran.push_back("delayed"); });
    doomed.reset();

    QtMainQueue survivor;
    QEventLoop loop;
    survivor.postAfter(5ms, [&] { loop.quit(); });
    ASSERT_TRUE(runUntilQuit(loop));
    EXPECT_TRUE(ran.empty());
}

} // namespace
} // namespace tidewell
