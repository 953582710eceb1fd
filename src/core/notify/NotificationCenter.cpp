#include "core/notify/NotificationCenter.h"

namespace tidewell {

NotificationCenter::NotificationCenter(MainQueue& queue) : queue_(queue) {}

ObserverToken NotificationCenter::addObserver(std::string name, std::function<void()> handler) {
    const ObserverToken token = nextToken_++;
    observers_->emplace(token, Observer{std::move(name), std::move(handler)});
    return token;
}

void NotificationCenter::removeObserver(ObserverToken token) {
    observers_->erase(token);
}

void NotificationCenter::post(std::string_view name) {
    std::weak_ptr<Registry> weakObservers = observers_;
    for (const auto& [token, observer] : *observers_) {
        if (observer.name != name)
            continue;
        queue_.post([weakObservers, token = token] {
            const auto observers = weakObservers.lock();
            if (!observers)
                return;
            const auto found = observers->find(token);
            if (found != observers->end())
                found->second.handler();
        });
    }
}

} // namespace tidewell
