#include "ExchangeLine.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "Status.h"
#include "korvastrond.h"

namespace korva::laminated {

namespace {

constexpr double kLongest = 1e5;
constexpr double kDeepest = 1e4;
constexpr double kLargest = 1e9;
constexpr double kRightAngle = 90;
constexpr double kLeastXcutAngle = 1;
constexpr double kLeastSpacing = 1;

// The fields by their numbers in the line; those of the sides are the first side's, the second's follow.
enum Field {
  kEntryHeight = 3,
  kDepthCover = 4,
  kEntryWidth = 5,
  kXcutSpacing = 6,
  kXcutAngle = 7,
  kNumberEntries = 8,
  kFirstCenter = 9,
  kLoadingCondition = 18,
  kExtentActiveGob = 19,
  kExtentSideGob = 20,
  kBarrier = 22,
  kSlabCut = 24,
  kUnits = 38,
  kCoalStrength = 39,
  kUnitWeight = 40,
  kBreadthAMZ = 41,
  kAngleActiveGob = 42,
  kAngleSideGob = 43,
  kRowA = 45,
  kRowB = 46,
  kBleederRow = 47,
  kBleederWidth = 49
};

[[noreturn]] void RefuseField(int field) {
  throw Failure{KORVASTROND_FIELD + field};
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') {
    text.remove_prefix(1);
  }
  while (!text.empty() && text.back() == ' ') {
    text.remove_suffix(1);
  }
  return text;
}

double NumberOf(std::string_view field, int number) {
  const std::string_view text = Trimmed(field);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    RefuseField(number);
  }
  return value;
}

// The numbers of the line, by their numbers from 1 on, with the tests that a field can fail.
class Fields {
 public:
  explicit Fields(std::string_view text) {
    for (int last = 0; last < 2; ++last) {
      if (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.remove_suffix(1);
      }
    }
    int count = 0;
    for (std::size_t start = 0; start <= text.size(); ++count) {
      const std::size_t end = std::min(text.find(',', start), text.size());
      if (count < kExchangeFields) {
        texts_.at(static_cast<std::size_t>(count)) = text.substr(start, end - start);
      }
      start = end + 1;
    }
    if (count != kExchangeFields) {
      throw Failure{KORVASTROND_NOT_52_FIELDS};
    }
    for (int field = 1; field <= kExchangeFields; ++field) {
      const auto at = static_cast<std::size_t>(field - 1);
      values_.at(at) = NumberOf(texts_.at(at), field);
    }
  }

  double At(int field) const { return values_.at(static_cast<std::size_t>(field - 1)); }

  double Positive(int field, double most = kLongest) const {
    return At(field) > 0 ? UpTo(field, most) : throw Refused(field);
  }
  double NotNegative(int field, double most = kLongest) const {
    return At(field) >= 0 ? UpTo(field, most) : throw Refused(field);
  }
  int Whole(int field, int least, int most) const {
    const double value = At(field);
    return value >= least && value <= most && value == std::floor(value) ? static_cast<int>(value)
                                                                         : throw Refused(field);
  }
  bool Flag(int field) const { return At(field) == 1; }

 private:
  static Failure Refused(int field) { return {KORVASTROND_FIELD + field}; }
  double UpTo(int field, double most) const { return At(field) <= most ? At(field) : throw Refused(field); }

  std::array<std::string_view, kExchangeFields> texts_;
  std::array<double, kExchangeFields> values_{};
};

Side ReadSide(const Fields& fields, int side, bool rowStays) {
  Side read;
  read.Extent = fields.NotNegative(kExtentSideGob + side);
  read.Barrier = fields.NotNegative(kBarrier + side);
  read.SlabCut = fields.NotNegative(kSlabCut + side, read.Barrier);
  if (rowStays && read.SlabCut > 0) {
    RefuseField(kSlabCut + side);  // the row stands between the active gob and the barrier
  }
  read.AbutmentAngle = fields.NotNegative(kAngleSideGob + side, kRightAngle);
  read.BleederRow = fields.Flag(kBleederRow + side);
  if (read.BleederRow) {
    read.BleederWidth = fields.Positive(kBleederWidth + side);
  }
  return read;
}

}  // namespace

Panel ReadExchangeLine(std::string_view text) {
  const Fields fields(text);
  Panel panel;
  panel.EntryHeight = fields.Positive(kEntryHeight);
  panel.DepthCover = fields.Positive(kDepthCover, kDeepest);
  panel.EntryWidth = fields.Positive(kEntryWidth);
  panel.XcutSpacing = fields.Positive(kXcutSpacing);
  if (panel.XcutSpacing < kLeastSpacing) {
    RefuseField(kXcutSpacing);
  }
  panel.XcutAngle = fields.Positive(kXcutAngle, kRightAngle);
  if (panel.XcutAngle < kLeastXcutAngle) {
    RefuseField(kXcutAngle);
  }
  panel.Entries = fields.Whole(kNumberEntries, 2, kMostRows + 1);
  for (int row = 0; row < panel.Rows(); ++row) {
    panel.Centers.at(static_cast<std::size_t>(row)) = fields.Positive(kFirstCenter + row);
  }
  static constexpr std::array kConditions = {kDevelopmentOnly, kActiveGob, kOneSideGob, kTwoSideGobs,
                                             kOneSideGob};
  panel.LoadCondition =
      kConditions.at(static_cast<std::size_t>(fields.Whole(kLoadingCondition, 1, kConditions.size()) - 1));
  panel.Metric = fields.Whole(kUnits, 0, 1) == 1;
  panel.CoalStrength = fields.Positive(kCoalStrength, kLargest);
  panel.UnitWeight = fields.Positive(kUnitWeight, kLargest);
  panel.BreadthAMZ = fields.Positive(kBreadthAMZ);
  if (panel.LoadCondition == kDevelopmentOnly) {
    return panel;
  }
  panel.ExtentActiveGob = fields.NotNegative(kExtentActiveGob);
  panel.AbutmentAngleActiveGob = fields.NotNegative(kAngleActiveGob, kRightAngle);
  panel.RowA = fields.Flag(kRowA);
  panel.RowB = fields.Flag(kRowB);
  for (int side = 0; side < panel.GobSides(); ++side) {
    panel.Sides.at(static_cast<std::size_t>(side)) =
        ReadSide(fields, side, side == 0 ? panel.RowA : panel.RowB);
  }
  return panel;
}

Failure OverflowFailure(const Panel& panel) {
  const int field = panel.EntryHeight < panel.UnitWeight ? kEntryHeight : kUnitWeight;
  return {KORVASTROND_FIELD + field};
}

}  // namespace korva::laminated
