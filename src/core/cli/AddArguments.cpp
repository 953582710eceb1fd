#include "core/cli/AddArguments.h"

namespace tidewell {

AddArguments AddArguments::parse(const std::vector<std::string>& arguments) {
    AddArguments parsed;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (argument == "--name" && hasValue)
            parsed.name = arguments[++i];
        else if (argument == "--command" && hasValue)
            parsed.command = arguments[++i];
        else if (argument == "--icon" && hasValue)
            parsed.icon = arguments[++i];
        else if (!parsed.folder)
            parsed.folder = argument;
    }
    return parsed;
}

} // namespace tidewell
