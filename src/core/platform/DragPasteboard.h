#pragma once

namespace tidewell {

// What a drag under way, from any application, carries.
class DragPasteboard {
public:
    virtual ~DragPasteboard() = default;
    // Whether the dragged data offers file locations.
    virtual bool offersFiles() const = 0;
};

} // namespace tidewell
