#include "support/HeadlessWeston.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace tidewell::testing {

HeadlessWeston::HeadlessWeston(const std::string& runtimeFolder)
    : process_(
          {.arguments = {"weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0",
                         std::string("--socket=") + socket},
           .workingDirectory = "/",
           .environment = {{"PATH", std::getenv("PATH")}, {"XDG_RUNTIME_DIR", runtimeFolder}}}) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!std::filesystem::exists(runtimeFolder + "/" + socket)) {
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("weston did not open its socket");
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

} // namespace tidewell::testing
