#include "linux/DBusAnswerCounter.h"

#include <cstdint>

namespace tidewell {
namespace {

std::uint32_t readUint32(std::string_view bytes, std::size_t offset, bool isLittleEndian) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[offset + (isLittleEndian ? i : 3 - i)]);
        value |= static_cast<std::uint32_t>(byte) << (8 * i);
    }
    return value;
}

// Length of the first complete message in the buffer, or 0 when more bytes are needed.
std::size_t completeMessageLength(std::string_view bytes) {
    if (bytes.size() < 16)
        return 0;
    const bool isLittleEndian = bytes[0] == 'l';
    const std::size_t fieldsEnd = 16 + readUint32(bytes, 12, isLittleEndian);
    const std::size_t total = (fieldsEnd + 7) / 8 * 8 + readUint32(bytes, 4, isLittleEndian);
    return bytes.size() >= total ? total : 0;
}

} // namespace

bool DBusAnswerCounter::take(std::string_view bytes) {
    buffer_.append(bytes);
    if (!isAuthenticated_) {
        const std::size_t lineEnd = buffer_.find("\r\n");
        if (lineEnd == std::string::npos)
            return true;
        if (!buffer_.starts_with("OK "))
            return false;
        buffer_.erase(0, lineEnd + 2);
        isAuthenticated_ = true;
    }
    while (const std::size_t length = completeMessageLength(buffer_)) {
        const auto type = static_cast<unsigned char>(buffer_[1]);
        if (type == 2 || type == 3) // method return or error
            ++answers_;
        buffer_.erase(0, length);
    }
    return true;
}

} // namespace tidewell
