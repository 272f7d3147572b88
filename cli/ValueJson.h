// Result arrays as JSON.
#pragma once

#include <string>
#include <type_traits>

#include "Session.h"

namespace korva::cli {

// A number, or an array as an object of its elements index by index.
template <class T>
Json ValueJson(const T& value) {
  if constexpr (std::is_arithmetic_v<T>) {
    return value == 0 ? 0.0 : static_cast<double>(value);  // no -0
  } else {
    Json object = Json::object();
    for (int i = T::kFirst; i <= T::kLast; ++i) {
      object[std::to_string(i)] = ValueJson(value[i]);
    }
    return object;
  }
}

}  // namespace korva::cli
