#pragma once

#include "core/platform/Geometry.h"

namespace tidewell {

// Where the pointer is now and which buttons are held.
class Pointer {
public:
    // Bit 0 of `pressedButtons()`.
    static constexpr unsigned primaryButton = 1;

    virtual ~Pointer() = default;
    virtual Point location() const = 0;
    virtual unsigned pressedButtons() const = 0;
};

} // namespace tidewell
