#pragma once

namespace tidewell {

// The names that cross processes. A notification carries only its name.
inline constexpr const char* notchItemsChanged = "Tidewell.itemsChanged";
inline constexpr const char* notchShowShelf = "Tidewell.showShelf";
inline constexpr const char* tidewellLoginStatusChanged = "Tidewell.loginStatusChanged";

} // namespace tidewell
