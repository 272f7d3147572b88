#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "core/NumberParsing.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/FieldCursor.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

constexpr int kSkippedItems = 9;

// The items of a result file. An empty one is no number: a result is never taken for 0 that is not there.
class Items {
 public:
  Items(std::string_view text, const std::string& fileName) : cursor_(text, fileName, notices_) {
    cursor_.ReadLine("a heading line");
  }

  double Number(std::string_view expected) {
    const std::string_view text = Trimmed(cursor_.ReadText(expected));
    const ParsedNumber parsed = ParseNumberPrefix(text);
    if (text.empty() || parsed.length != text.size()) {
      cursor_.Fail(ErrorNumber::kTypeMismatch, expected, text);
    }
    if (parsed.overflow) {
      cursor_.Fail(ErrorNumber::kOverflow, expected, text);
    }
    return parsed.value;
  }

  float Single(std::string_view expected) {
    const double value = Number(expected);
    if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
      cursor_.Fail(ErrorNumber::kOverflow, expected, fmt::format("{}", value));
    }
    return static_cast<float>(value);
  }

 private:
  std::vector<FileNotice> notices_;
  FieldCursor cursor_;
};

}  // namespace

StrondResults ReadStrondResults(std::string_view text, const std::string& fileName) {
  Items items(text, fileName);
  StrondResults results;
  for (int item = 0; item < kSkippedItems; ++item) {
    items.Single("a figure about the solution");
  }
  for (double& factor : results.StrondSF) {
    factor = items.Number("a stability factor");
  }
  for (int side = 0; side < 2; ++side) {
    for (int c = 0; c < 2; ++c) {
      results.StrondBarrierSF[c][side] = items.Single("a barrier stability factor");
    }
  }
  for (int side = 0; side < 2; ++side) {
    for (int c = 0; c < 2; ++c) {
      results.StrondRemnantSF[c][side] = items.Single("a remnant stability factor");
    }
  }
  for (float& strength : results.StrondPillarStrength) {
    strength = items.Single("a pillar strength");
  }
  for (auto& side : results.StrondBarrierData) {
    for (float& quantity : side) {
      quantity = items.Single("strength, area or load of a barrier");
    }
  }
  for (auto& side : results.StrondRemnantData) {
    for (float& quantity : side) {
      quantity = items.Single("strength, area or load of a remnant");
    }
  }
  return results;
}

}  // namespace korva
