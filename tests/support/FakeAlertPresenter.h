#pragma once

#include "core/platform/AlertPresenter.h"

#include <vector>

namespace tidewell::testing {

class FakeAlertPresenter : public AlertPresenter {
public:
    void showAlert(const std::string& message) override { messages.push_back(message); }

    std::vector<std::string> messages;
};

} // namespace tidewell::testing
