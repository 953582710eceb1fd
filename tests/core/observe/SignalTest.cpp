#include "core/observe/Signal.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tidewell::testing {

// Slots are called in order until their connection ends: destroyed, disconnected, replaced
// or disconnected by a slot during the emission; a slot connected then hears the next one.
TEST(Signal, CallsConnectedSlotsInOrderUntilTheirConnectionEnds) {
    Signal<std::string> signal;
    std::vector<std::string> heard;
    const auto slot = [&](const char* name) {
        return [&heard, name](const std::string& text) { heard.push_back(name + text); };
    };
    std::optional<Connection> scoped = signal.connect(slot("scoped "));
    Connection replaced = signal.connect(slot("replaced "));
    Connection later, added, self;
    bool connectsOnce = true;
    const Connection first = signal.connect([&](const std::string& text) {
        later.disconnect();
        if (std::exchange(connectsOnce, false))
            added = signal.connect(slot("added "));
        heard.push_back("first " + text);
    });
    later = signal.connect(slot("later "));
    self = signal.connect([&](const std::string& text) {
        heard.push_back("self " + text);
        self.disconnect();
    });
    Connection kept = signal.connect(slot("kept "));
    signal.emit("a");
    scoped.reset();
    replaced = std::move(kept);
    signal.emit("b");
    EXPECT_EQ(heard, (std::vector<std::string>{"scoped a", "replaced a", "first a", "self a",
                                               "kept a", "first b", "kept b", "added b"}));
    Connection outliving; // may outlive its signal
    {
        Signal<> shortLived;
        outliving = shortLived.connect([] {});
    }
    outliving.disconnect();
}

} // namespace tidewell::testing
