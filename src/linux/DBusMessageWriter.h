#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tidewell {

// Builds D-Bus messages in the little-endian wire format: just what a client needs to call
// the bus itself and to emit a signal with string arguments.
class DBusMessageWriter {
public:
    enum class Type : std::uint8_t { methodCall = 1, signal = 4 };

    struct Header {
        Type type;
        std::uint32_t serial;
        std::string_view path;
        std::string_view interfaceName;
        std::string_view member;
        std::string_view destination; // empty: none (broadcast)
    };

    // A whole message whose body is the given strings (none: no body).
    static std::string message(const Header& header, std::initializer_list<std::string_view> body);
};

} // namespace tidewell
