// A page of output under construction.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "core/Text.h"

namespace korva {

// The width to which running text on a page is wrapped.
inline constexpr std::size_t kPageWidth = 70;

// Headings that the pages of both models have.
inline constexpr std::string_view kFactorsHeading = "[KORVA STABILITY FACTORS]";
inline constexpr std::string_view kBarrierFactorsHeading = "[BARRIER PILLAR STABILITY FACTORS]";
inline constexpr std::string_view kPillarsHeading = "[PILLAR PARAMETERS]";
inline constexpr std::string_view kBarriersHeading = "[BARRIER PILLAR PARAMETERS]";

class PageText {
 public:
  PageText() = default;

  // A page that starts with its title line and an empty line.
  explicit PageText(std::string_view title) { Line(title).Line(); }

  // A line made of these pieces.
  template <class... Pieces>
  PageText& Line(const Pieces&... pieces) {
    (text_.append(pieces), ...);
    text_.append(kLineEnd);
    return *this;
  }

  // Text that has its line ends.
  PageText& Text(std::string_view text) {
    text_.append(text);
    return *this;
  }

  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace korva
