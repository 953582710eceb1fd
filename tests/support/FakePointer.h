#pragma once

#include "core/platform/Pointer.h"

namespace tidewell::testing {

class FakePointer : public Pointer {
public:
    Point location() const override { return where; }
    unsigned pressedButtons() const override { return buttons; }

    Point where;
    unsigned buttons = 0;
};

} // namespace tidewell::testing
