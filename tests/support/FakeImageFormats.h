#pragma once

#include "core/icons/ImageFormats.h"

#include <set>
#include <string>

namespace tidewell::testing {

// Draws every format but the ones named.
class FakeImageFormats : public ImageFormats {
public:
    using Extensions = std::set<std::string, std::less<>>;

    explicit FakeImageFormats(Extensions undecodable = {}) : undecodable_(std::move(undecodable)) {}

    bool canDecode(std::string_view extension) const override {
        return !undecodable_.contains(extension);
    }

private:
    Extensions undecodable_;
};

} // namespace tidewell::testing
