// The range rule of settings.
#pragma once

namespace korva {

// `value` if it lies in `minimum` to `maximum`, else the minimum, not the nearer bound.
template <class T>
T ClampOrReset(T value, T minimum, T maximum) {
  return value >= minimum && value <= maximum ? value : minimum;
}

}  // namespace korva
