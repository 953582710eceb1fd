#include "gui/TestDesktop.h"

#include <memory>

namespace tidewell::testing {
namespace {

std::unique_ptr<TestDesktop> installed;

class Installation : public ::testing::Environment {
public:
    void SetUp() override { installed = std::make_unique<TestDesktop>(); }
    void TearDown() override { installed.reset(); }
};

} // namespace

TestDesktop::TestDesktop()
    : configHome_(root_.makeFolder("config")),
      handlers_(root_.path(), root_.makeFolder("data"), configHome_) {
    environment_.set("XDG_CONFIG_HOME", configHome_);
    environment_.set("XDG_DATA_HOME", root_.path() + "/data");
    environment_.set("XDG_CONFIG_DIRS", root_.makeFolder("empty-config"));
    environment_.set("XDG_DATA_DIRS", root_.makeFolder("empty-data"));
    handlers_.install(codexId, "");
}

::testing::Environment* TestDesktop::installation() {
    return new Installation;
}

const TestDesktop& TestDesktop::current() {
    return *installed;
}

} // namespace tidewell::testing
