#include "support/Screenshot.h"

#include <sstream>
#include <stdexcept>

namespace tidewell::testing {

Screenshot Screenshot::fromPpm(const std::string& bytes) {
    std::istringstream header(bytes);
    std::string magic;
    int maximum = 0;
    Screenshot shot;
    header >> magic >> shot.width_ >> shot.height_ >> maximum;
    const auto start = static_cast<std::size_t>(header.tellg()) + 1; // one white space
    const auto size = static_cast<std::size_t>(shot.width_) * shot.height_;
    if (magic != "P6" || maximum != 255 || !header || bytes.size() < start + 3 * size)
        throw std::runtime_error("not a picture of 8-bit samples: " + bytes.substr(0, 20));
    shot.pixels_.resize(size);
    for (std::size_t at = 0; at < size; ++at) {
        const auto* sample = reinterpret_cast<const unsigned char*>(&bytes[start + 3 * at]);
        shot.pixels_[at] = sample[0] << 16 | sample[1] << 8 | sample[2];
    }
    return shot;
}

unsigned long Screenshot::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_)
        throw std::out_of_range("no pixel " + std::to_string(x) + "," + std::to_string(y));
    return pixels_[static_cast<std::size_t>(y) * width_ + x];
}

int Screenshot::runThrough(int x, int y, unsigned long colour) const {
    if (pixel(x, y) != colour)
        return 0;
    int left = x;
    int right = x + 1; // one past the run
    while (left > 0 && pixel(left - 1, y) == colour)
        --left;
    while (right < width_ && pixel(right, y) == colour)
        ++right;
    return right - left;
}

} // namespace tidewell::testing
