#pragma once

namespace tidewell::BusNames {

// Where the notifications of every Tidewell process travel on the session bus: a broadcast
// signal whose one string argument is the notification's name.
inline constexpr const char* objectPath = "/com/quorvel/tidewell";
inline constexpr const char* interfaceName = "com.quorvel.tidewell.Notifications";
inline constexpr const char* memberName = "Posted";

} // namespace tidewell::BusNames
