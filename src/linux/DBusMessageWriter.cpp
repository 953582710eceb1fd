#include "linux/DBusMessageWriter.h"

namespace tidewell {
namespace {

enum FieldCode : std::uint8_t {
    pathField = 1,
    interfaceField = 2,
    memberField = 3,
    destinationField = 6,
    signatureField = 8,
};

class Buffer {
public:
    void align(std::size_t boundary) {
        while (bytes.size() % boundary != 0)
            bytes.push_back('\0');
    }
    void byte(std::uint8_t value) { bytes.push_back(static_cast<char>(value)); }
    void uint32(std::uint32_t value) {
        align(4);
        for (int shift = 0; shift < 32; shift += 8)
            byte(static_cast<std::uint8_t>(value >> shift));
    }
    void putUint32At(std::size_t offset, std::uint32_t value) {
        for (int i = 0; i < 4; ++i)
            bytes[offset + i] = static_cast<char>(value >> (8 * i));
    }
    void string(std::string_view text) { // also object paths
        uint32(static_cast<std::uint32_t>(text.size()));
        bytes.append(text);
        byte(0);
    }
    void signature(std::string_view text) {
        byte(static_cast<std::uint8_t>(text.size()));
        bytes.append(text);
        byte(0);
    }
    void field(FieldCode code, char type, std::string_view value) {
        align(8);
        byte(code);
        signature(std::string_view(&type, 1));
        if (type == 'g')
            signature(value);
        else
            string(value);
    }

    std::string bytes;
};

} // namespace

std::string DBusMessageWriter::message(const Header& header,
                                       std::initializer_list<std::string_view> body) {
    Buffer bodyBytes;
    for (std::string_view argument : body)
        bodyBytes.string(argument);

    Buffer out;
    out.byte('l');
    out.byte(static_cast<std::uint8_t>(header.type));
    out.byte(0); // flags
    out.byte(1); // protocol version
    out.uint32(static_cast<std::uint32_t>(bodyBytes.bytes.size()));
    out.uint32(header.serial);
    const std::size_t fieldsLengthOffset = out.bytes.size();
    out.uint32(0);
    const std::size_t fieldsStart = out.bytes.size();
    out.field(pathField, 'o', header.path);
    out.field(interfaceField, 's', header.interfaceName);
    out.field(memberField, 's', header.member);
    if (!header.destination.empty())
        out.field(destinationField, 's', header.destination);
    if (body.size() > 0)
        out.field(signatureField, 'g', std::string(body.size(), 's'));
    out.putUint32At(fieldsLengthOffset, static_cast<std::uint32_t>(out.bytes.size() - fieldsStart));
    out.align(8);
    return out.bytes + bodyBytes.bytes;
}

} // namespace tidewell
