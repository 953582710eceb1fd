#include "gui/FakeFileManager.h"

#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <unistd.h>

namespace tidewell::testing {
namespace {

constexpr const char* fileManager = "org.freedesktop.FileManager1";

void check(int result, const char* what) {
    if (result < 0)
        throw std::runtime_error(std::string(what) + ": " + std::strerror(-result));
}

} // namespace

FakeFileManager::FakeFileManager(Answer answer) : answer_(answer) {
    check(sd_bus_open_user(&bus_), "sd_bus_open_user");
    check(sd_bus_add_object(bus_, &object_, "/org/freedesktop/FileManager1", &handle, this),
          "sd_bus_add_object");
    check(sd_bus_request_name(bus_, fileManager, 0), "sd_bus_request_name");
    wakeUp_ = ::eventfd(0, EFD_CLOEXEC);
    thread_ = std::thread([this] { serve(); });
}

FakeFileManager::~FakeFileManager() {
    const std::uint64_t one = 1;
    (void)!::write(wakeUp_, &one, sizeof one);
    thread_.join();
    ::close(wakeUp_);
    for (sd_bus_message* call : unanswered_) {
        sd_bus_reply_method_return(call, "");
        sd_bus_message_unref(call);
    }
    sd_bus_slot_unref(object_);
    sd_bus_flush_close_unref(bus_);
}

std::vector<FakeFileManager::ShowItemsCall> FakeFileManager::calls() const {
    std::lock_guard lock(mutex_);
    return calls_;
}

int FakeFileManager::handle(sd_bus_message* message, void* self, sd_bus_error*) {
    if (!sd_bus_message_is_method_call(message, fileManager, "ShowItems"))
        return 0;
    char** uris = nullptr;
    const char* startupId = nullptr;
    ShowItemsCall call;
    if (sd_bus_message_read_strv(message, &uris) < 0 ||
        sd_bus_message_read(message, "s", &startupId) < 0)
        return sd_bus_reply_method_errorf(message, SD_BUS_ERROR_INVALID_ARGS, "Expected (as, s)");
    for (char** uri = uris; uri && *uri; ++uri) {
        call.uris.push_back(*uri);
        std::free(*uri);
    }
    std::free(uris);
    call.startupId = startupId;
    auto& manager = *static_cast<FakeFileManager*>(self);
    {
        std::lock_guard lock(manager.mutex_);
        manager.calls_.push_back(std::move(call));
    }
    switch (manager.answer_) {
    case Answer::atOnce:
        return sd_bus_reply_method_return(message, "");
    case Answer::late:
        manager.unanswered_.push_back(sd_bus_message_ref(message));
        return 1;
    case Answer::withError:
        return sd_bus_reply_method_errorf(message, SD_BUS_ERROR_FAILED, "Cannot show the items");
    }
    return 0;
}

void FakeFileManager::serve() {
    while (true) {
        while (sd_bus_process(bus_, nullptr) > 0) {
        }
        pollfd descriptors[] = {
            {sd_bus_get_fd(bus_), static_cast<short>(sd_bus_get_events(bus_)), 0},
            {wakeUp_, POLLIN, 0},
        };
        // sd-bus only has a deadline while a call of its own awaits an answer; looking
        // again every 10 ms then is precise enough for a test.
        std::uint64_t deadline = UINT64_MAX;
        sd_bus_get_timeout(bus_, &deadline);
        ::poll(descriptors, 2, deadline == UINT64_MAX ? -1 : 10);
        if (descriptors[1].revents & POLLIN)
            return;
    }
}

} // namespace tidewell::testing
