#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tidewell {

// The arguments of the add family, read left to right. An option needs a value after it;
// an option word with nothing after it counts as an ordinary argument.
struct AddArguments {
    std::optional<std::string> folder;
    std::optional<std::string> name;
    std::string command;
    std::optional<std::string> icon; // as written; resolved by the caller

    static AddArguments parse(const std::vector<std::string>& arguments);
};

} // namespace tidewell
