#include "workbook/Reading.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/Encoding.h"
#include "core/RuntimeError.h"

namespace korva {

void Reading::ThrowIfCancelled() const {
  if (askWhetherToGoOn_ && !askWhetherToGoOn_()) {
    throw RuntimeError(ErrorNumber::kDialogCancelled, fmt::format("{}: reading it was ended", file_));
  }
}

void Reading::Refuse(std::string_view why) const {
  throw RuntimeError(ErrorNumber::kDeviceIo, fmt::format("{}: {}", file_, TextFromFileBytes(why)));
}

void Reading::Damaged(std::string_view what) const {
  Refuse(fmt::format("the workbook is damaged: {}", what));
}

void Reading::TooLarge(std::string_view what) const {
  throw RuntimeError(ErrorNumber::kOutOfMemory,
                     fmt::format("{}: the workbook is too large: {}", file_, what));
}

void Reading::NoSheet(std::string_view name, const std::vector<std::string>& sheets) const {
  static constexpr std::size_t kMostNamed = 20;
  std::string there;
  for (std::size_t i = 0; i < std::min(sheets.size(), kMostNamed); ++i) {
    there += fmt::format("{}\"{}\"", i == 0 ? "" : ", ", TextFromFileBytes(sheets[i]));
  }
  if (sheets.size() > kMostNamed) {
    there += fmt::format(" and {} more", sheets.size() - kMostNamed);
  }
  throw RuntimeError(ErrorNumber::kSubscript,
                     fmt::format("{}: there is no worksheet \"{}\"; the workbook has {}", file_, name,
                                 there.empty() ? "none" : there));
}

}  // namespace korva
