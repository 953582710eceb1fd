#pragma once

#include <string>

namespace tidewell {

// A modal alert in the desktop's standard layout.
class AlertPresenter {
public:
    virtual ~AlertPresenter() = default;
    // Returns once the user has dismissed it.
    virtual void showAlert(const std::string& message) = 0;
};

} // namespace tidewell
