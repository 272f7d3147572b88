#include "input/CheckParameters.h"

#include <fmt/format.h>

#include "input/CheckFieldRange.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

using Refusal = std::optional<ParameterRefusal>;

double Number(const ParameterTexts& texts, NumberIndex field) {
  return FieldNumber(texts[field]);
}

ParameterRefusal Refused(const NumberField& field, std::string_view text, RefusalKind kind) {
  return {std::string(text), kind, RowOf(field.Frame).Tab, field.Control};
}

bool Takes(const AcceptedRange& range, double value) {
  return (range.IncludesLeast ? value >= range.Least : value > range.Least) && value <= range.Greatest;
}

// Whether the bound holds that another field sets.
bool FitsOtherField(const ParameterTexts& t, std::size_t field) {
  constexpr NumberIndex kSpacing(&Project::XcutSpacing);
  constexpr NumberIndex kFirstSlabCut(&Project::SlabcutFirstGob);
  constexpr NumberIndex kSecondSlabCut(&Project::SlabcutSecondGob);
  return (field != kSpacing.At || Number(t, &Project::EntryWidth) < Number(t, kSpacing)) &&
         (field != kFirstSlabCut.At || Number(t, kFirstSlabCut) <= Number(t, &Project::BarrierFirstGob)) &&
         (field != kSecondSlabCut.At || Number(t, kSecondSlabCut) <= Number(t, &Project::BarrierSecondGob));
}

// Why a field's text is refused, or nothing.
std::optional<std::string> ReasonToRefuse(const ParameterTexts& texts, std::size_t field) {
  const NumberField& row = kNumberFields[field];
  const std::string& text = texts.Numbers[field];
  if (row.Refusal.empty()) {
    return CheckFieldRange(text, row.Range.Least, row.Range.Greatest, "");
  }
  if (Takes(row.Range, FieldNumber(text)) && FitsOtherField(texts, field)) {
    return std::nullopt;
  }
  return std::string(row.Refusal);
}

Refusal CheckFrame(const ParameterTexts& texts, ParameterFrame frame) {
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    const NumberField& field = kNumberFields[i];
    const auto flag = FlagThatShows(field);
    if (field.Frame != frame || (flag && !texts.Flags[*flag])) {
      continue;
    }
    if (const auto fault = ReasonToRefuse(texts, i)) {
      return Refused(field, *fault, field.Kind);
    }
  }
  return std::nullopt;
}

// Rows A and B are tested from one side gob on, and both send the person to the first slab cut.
Refusal CheckSlabCuts(const ParameterTexts& t) {
  if (!HasFirstSideGob(t.LoadingCondition)) {
    return std::nullopt;
  }
  if (t[&Project::RowA] && Number(t, &Project::SlabcutFirstGob) > 0) {
    return Refused(RowOf(&Project::SlabcutFirstGob), kSlabCutAtRowA, RefusalKind::kLogic);
  }
  if (t[&Project::RowB] && Number(t, &Project::SlabcutSecondGob) > 0) {
    return Refused(RowOf(&Project::SlabcutFirstGob), kSlabCutAtRowB, RefusalKind::kLogic);
  }
  return std::nullopt;
}

Refusal CheckEntries(const ParameterTexts& t) {
  for (int i = 1; i < EntriesOf(t); ++i) {
    const double center = FieldNumber(t.XcutCenters[i]);
    const auto refuse = [i](std::string_view text) {
      return ParameterRefusal{std::string(text), RefusalKind::kRange, RowOf(kCenterField.Frame).Tab,
                              fmt::format("{}({})", kCenterField.Control, i)};
    };
    if (!Takes(kCenterField.Range, center)) {
      return refuse(kCenterField.Refusal);
    }
    if (Number(t, &Project::EntryWidth) >= center) {
      return refuse("Entry spacing should be more than Entry Width");
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<ParameterRefusal> CheckParameters(const ParameterTexts& texts) {
  using Frame = ParameterFrame;
  Refusal refusal;
  const auto check = [&](Frame frame, bool counts = true) {
    if (!refusal && counts) {
      refusal = CheckFrame(texts, frame);
    }
  };
  for (const Frame frame : {Frame::kGeometry, Frame::kLoading, Frame::kZone, Frame::kArch, Frame::kBleeder}) {
    check(frame);
  }
  refusal = refusal ? refusal : CheckSlabCuts(texts);
  check(Frame::kActiveGob);
  check(Frame::kFirstGob, HasFirstSideGob(texts.LoadingCondition));
  check(Frame::kSecondGob, HasSecondSideGob(texts.LoadingCondition));
  return refusal ? refusal : CheckEntries(texts);
}

}  // namespace korva
