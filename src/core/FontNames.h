// The free fonts that pictures and printed pages are measured with.
#pragma once

namespace korva {

inline constexpr const char* kSansFont = "Liberation Sans";
inline constexpr const char* kMonoFont = "Liberation Mono";
inline constexpr const char* kCourierFont = "Courier New";  // as wide as the one before

}  // namespace korva
