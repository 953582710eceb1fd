#include "core/notify/NotificationCenter.h"

#include <vector>

namespace tidewell {

NotificationCenter::NotificationCenter(MainQueue& queue)
    : deliver_([&queue](MainQueue::Task task) { queue.post(std::move(task)); }) {}

ObserverToken NotificationCenter::addObserver(std::string name, std::function<void()> handler) {
    const ObserverToken token = nextToken_++;
    observers_->emplace(token, Observer{std::move(name), std::move(handler)});
    return token;
}

void NotificationCenter::removeObserver(ObserverToken token) {
    observers_->erase(token);
}

void NotificationCenter::post(std::string_view name) {
    // Collected first: a handler delivered at once may add or remove observers.
    std::vector<ObserverToken> tokens;
    for (const auto& [token, observer] : *observers_)
        if (observer.name == name)
            tokens.push_back(token);
    std::weak_ptr<Registry> weakObservers = observers_;
    for (const ObserverToken token : tokens) {
        deliver_([weakObservers, token] {
            const auto observers = weakObservers.lock();
            if (!observers)
                return;
            const auto found = observers->find(token);
            if (found == observers->end())
                return;
            const auto handler = found->second.handler; // it may remove its own observer
            handler();
        });
    }
}

} // namespace tidewell
