#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace tidewell {

// The one way core objects tell others that something changed.
//
// An owner holds a Signal and emits it after each change; an observer connects a callback
// and keeps the returned Connection for as long as it wants to hear: destroying (or
// disconnecting) the Connection stops the calls. Everything happens on the main thread.
// Callbacks run in the order they were connected; a callback may connect or disconnect
// others, and one disconnected during an emission is not called after that.
class Connection {
public:
    Connection() = default;
    Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
    ~Connection() { disconnect(); }
    Connection(Connection&& other) noexcept : disconnect_(std::exchange(other.disconnect_, {})) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            disconnect();
            disconnect_ = std::exchange(other.disconnect_, {});
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void disconnect() {
        if (disconnect_)
            std::exchange(disconnect_, {})();
    }

private:
    std::function<void()> disconnect_;
};

// Interface toolkits may define `emit` as an empty macro before this header is read; the
// member keeps its name either way.
#pragma push_macro("emit")
#undef emit

template <typename... Arguments> class Signal {
public:
    using Slot = std::function<void(Arguments...)>;

    [[nodiscard]] Connection connect(Slot slot) {
        const std::uint64_t id = state_->nextId++;
        state_->handlers.emplace(id, std::make_shared<Slot>(std::move(slot)));
        std::weak_ptr<State> weakState = state_;
        return Connection([weakState, id] {
            if (const auto state = weakState.lock())
                state->handlers.erase(id);
        });
    }

    void emit(const Arguments&... arguments) const {
        std::vector<std::pair<std::uint64_t, std::weak_ptr<Slot>>> snapshot;
        for (const auto& [id, slot] : state_->handlers)
            snapshot.emplace_back(id, slot);
        for (const auto& [id, weakSlot] : snapshot) {
            const auto slot = weakSlot.lock(); // gone when disconnected meanwhile
            if (slot && state_->handlers.contains(id))
                (*slot)(arguments...);
        }
    }

private:
    struct State {
        std::map<std::uint64_t, std::shared_ptr<Slot>> handlers;
        std::uint64_t nextId = 1;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

#pragma pop_macro("emit")

} // namespace tidewell
