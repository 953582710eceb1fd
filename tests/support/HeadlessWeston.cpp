#include "support/HeadlessWeston.h"

#include "support/WaitUntil.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace tidewell::testing {

HeadlessWeston::HeadlessWeston(const std::string& runtimeFolder)
    : process_(
          {.arguments = {"weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0",
                         std::string("--socket=") + socket},
           .workingDirectory = "/",
           .environment = {{"PATH", std::getenv("PATH")}, {"XDG_RUNTIME_DIR", runtimeFolder}}}) {
    if (!waitUntil([&] { return std::filesystem::exists(runtimeFolder + "/" + socket); },
                   std::chrono::seconds(10)))
        throw std::runtime_error("weston did not open its socket");
}

} // namespace tidewell::testing
