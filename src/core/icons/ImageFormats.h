#pragma once

#include <string_view>

namespace tidewell {

// Which image files the application can draw, by their lower-case extension. Discovery runs
// in the command-line tool too, which does not load the toolkit that draws them.
class ImageFormats {
public:
    virtual ~ImageFormats() = default;
    virtual bool canDecode(std::string_view extension) const = 0;
};

} // namespace tidewell
