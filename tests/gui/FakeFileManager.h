#pragma once

#include <mutex>
#include <string>
#include <systemd/sd-bus.h>
#include <thread>
#include <vector>

namespace tidewell::testing {

// A file manager on the session bus that owns org.freedesktop.FileManager1 from
// construction to destruction, serves ShowItems from a thread of its own and records each
// call before answering it as told.
class FakeFileManager {
public:
    enum class Answer {
        atOnce,
        // Only as it goes away, like one that takes long to start.
        late,
        withError,
    };
    struct ShowItemsCall {
        std::vector<std::string> uris;
        std::string startupId;
    };

    explicit FakeFileManager(Answer answer = Answer::atOnce);
    ~FakeFileManager();
    FakeFileManager(const FakeFileManager&) = delete;
    FakeFileManager& operator=(const FakeFileManager&) = delete;

    std::vector<ShowItemsCall> calls() const;

private:
    static int handle(sd_bus_message* message, void* self, sd_bus_error* error);
    void serve();

    Answer answer_;
    std::vector<sd_bus_message*> unanswered_; // served thread only
    sd_bus* bus_ = nullptr;
    sd_bus_slot* object_ = nullptr;
    int wakeUp_ = -1; // an eventfd that tells the thread to stop
    mutable std::mutex mutex_;
    std::vector<ShowItemsCall> calls_;
    std::thread thread_;
};

} // namespace tidewell::testing
