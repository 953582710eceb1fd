#pragma once

#include "core/platform/AlertPresenter.h"

namespace tidewell {

// A warning message box with one button to dismiss it.
class QtAlertPresenter : public AlertPresenter {
public:
    void showAlert(const std::string& message) override;
};

} // namespace tidewell
