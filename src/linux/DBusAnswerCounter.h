#pragma once

#include <string>
#include <string_view>

namespace tidewell {

// Follows what the bus sends a client that authenticated and then made method calls, and
// counts the answers (returns and errors) among the whole messages received so far. The bus
// answers calls in order, so the answer to the last call means everything before it was
// handled.
class DBusAnswerCounter {
public:
    // Takes the next bytes received; false once the bus has refused the authentication.
    bool take(std::string_view bytes);
    int answers() const { return answers_; }

private:
    std::string buffer_;
    bool isAuthenticated_ = false;
    int answers_ = 0;
};

} // namespace tidewell
