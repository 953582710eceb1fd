#include "core/observe/Signal.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tidewell::testing {
namespace {

TEST(Signal, CallsConnectedSlotsInOrderUntilTheirConnectionEnds) {
    Signal<std::string> signal;
    std::vector<std::string> heard;
    const auto slot = [&](const char* name) {
        return [&heard, name](const std::string& text) { heard.push_back(name + text); };
    };
    std::optional<Connection> scoped = signal.connect(slot("scoped "));
    Connection explicitlyEnded = signal.connect(slot("explicit "));
    Connection replaced = signal.connect(slot("replaced "));
    Connection kept = signal.connect(slot("kept "));
    const Connection last = signal.connect(slot("last "));
    signal.emit("a");
    scoped.reset();
    explicitlyEnded.disconnect();
    replaced = std::move(kept);
    signal.emit("b");
    EXPECT_EQ(heard, (std::vector<std::string>{"scoped a", "explicit a", "replaced a", "kept a",
                                               "last a", "kept b", "last b"}));
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
    signal.emit();
    EXPECT_EQ(heard, (std::vector<std::string>{"first", "self", "first", "added"}));
    // A connection may outlive its signal.
    Connection outliving;
    {
        Signal<> shortLived;
        outliving = shortLived.connect([] {});
    }
    outliving.disconnect();
}

} // namespace
} // namespace tidewell::testing
