#pragma once

#include "core/platform/DistributedNotificationCenter.h"

#include <map>
#include <string>
#include <vector>

namespace tidewell::testing {

// Records what was posted and delivers each post to this process's observers at once.
class FakeDistributedCenter : public DistributedNotificationCenter {
public:
    void post(std::string_view name) override {
        posted.emplace_back(name);
        const auto observers = observers_;
        for (const auto& [token, observer] : observers)
            if (observer.first == name)
                observer.second();
    }
    ObserverToken addObserver(std::string name, std::function<void()> handler) override {
        observers_.emplace(nextToken_, std::pair(std::move(name), std::move(handler)));
        return nextToken_++;
    }
    void removeObserver(ObserverToken token) override { observers_.erase(token); }

    std::vector<std::string> posted;

private:
    std::map<ObserverToken, std::pair<std::string, std::function<void()>>> observers_;
    ObserverToken nextToken_ = 1;
};

} // namespace tidewell::testing
