#pragma once

#include "core/platform/DragPasteboard.h"

namespace tidewell::testing {

class FakeDragPasteboard : public DragPasteboard {
public:
    bool offersFiles() const override { return files; }

    bool files = false;
};

} // namespace tidewell::testing
