#pragma once

#include <string>

namespace tidewell::bench {

// The least that a durable replacement of a file of `bytes` bytes in `folder` costs here:
// a new file written, synced, renamed over the old one and the folder synced, as the tool
// does on every change and zoxide does not. The median of `runs` in milliseconds.
double syncFloorMilliseconds(const std::string& folder, std::size_t bytes, int runs);

} // namespace tidewell::bench
