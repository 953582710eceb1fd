#include "core/observe/Signal.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tidewell::testing {
namespace {

TEST(Signal, CallsSlotsInConnectionOrderWithTheArguments) {
    Signal<std::string, int> signal;
    std::vector<std::string> heard;
    const Connection first = signal.connect([&](const std::string& text, int number) {
        heard.push_back("first " + text + std::to_string(number));
    });
    const Connection second = signal.connect([&](const std::string& text, int number) {
        heard.push_back("second " + text + std::to_string(number));
    });
    signal.emit("a", 1);
    signal.emit("b", 2);
    EXPECT_EQ(heard, (std::vector<std::string>{"first a1", "second a1", "first b2", "second b2"}));
}

TEST(Signal, EndingAConnectionStopsItsCalls) {
    Signal<> signal;
    std::vector<std::string> heard;
    std::optional<Connection> scoped = signal.connect([&] { heard.push_back("scoped"); });
    Connection explicitlyEnded = signal.connect([&] { heard.push_back("explicit"); });
    Connection replaced = signal.connect([&] { heard.push_back("replaced"); });
    Connection kept = signal.connect([&] { heard.push_back("kept"); });
    scoped.reset();
    explicitlyEnded.disconnect();
    replaced = std::move(kept);
    signal.emit();
    EXPECT_EQ(heard, std::vector<std::string>{"kept"});
}

TEST(Signal, SlotsMayDisconnectAndConnectDuringAnEmission) {
    Signal<> signal;
    std::vector<std::string> heard;
    Connection later;
    Connection added;
    bool connectsOnce = true;
    const Connection first = signal.connect([&] {
        heard.push_back("first");
        later.disconnect();
        if (std::exchange(connectsOnce, false))
            added = signal.connect([&] { heard.push_back("added"); });
    });
    later = signal.connect([&] { heard.push_back("later"); });
    Connection self;
    self = signal.connect([&] {
        heard.push_back("self");
        self.disconnect();
    });

    signal.emit();
    EXPECT_EQ(heard, (std::vector<std::string>{"first", "self"}));
    signal.emit();
    EXPECT_EQ(heard, (std::vector<std::string>{"first", "self", "first", "added"}));
}

TEST(Signal, AConnectionMayOutliveItsSignal) {
    int calls = 0;
    Connection connection;
    {
        Signal<> signal;
        connection = signal.connect([&] { ++calls; });
        signal.emit();
    }
    connection.disconnect();
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace tidewell::testing
