#pragma once

#include "core/platform/DragPasteboard.h"
#include "core/platform/Pointer.h"

namespace tidewell::testing {

// The pointer and what it drags, as the test sets them.
class FakePointer : public Pointer, public DragPasteboard {
public:
    Point location() const override { return where; }
    unsigned pressedButtons() const override { return buttons; }
    bool offersFiles() const override { return dragsFiles; }

    Point where;
    unsigned buttons = 0;
    bool dragsFiles = false;
};

} // namespace tidewell::testing
