#pragma once

#include <stdexcept>
#include <string>

namespace tidewell {

// A failure reported to the caller of an operation that touches files or services.
// what() is a complete sentence meant for people: the CLI prints it after "tide: ".
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tidewell
