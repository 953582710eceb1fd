#pragma once

#include <string>
#include <vector>

namespace tidewell::testing {

// A picture of the screen, as colours 0xRRGGBB row by row.
class Screenshot {
public:
    // From a binary PPM (P6) of 8-bit samples; throws when the bytes are none.
    static Screenshot fromPpm(const std::string& bytes);

    int width() const { return width_; }
    int height() const { return height_; }
    unsigned long pixel(int x, int y) const;
    // How wide the unbroken run of the colour through the pixel is, along its row.
    int runThrough(int x, int y, unsigned long colour) const;

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<unsigned long> pixels_;
};

} // namespace tidewell::testing
