#include "input/CheckParameters.h"

#include <fmt/format.h>

#include "core/Limits.h"
#include "core/Refusals.h"
#include "input/CheckFieldRange.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

using Refusal = std::optional<ParameterRefusal>;

double N(const std::string& text) {
  return FieldNumber(text);
}

Refusal RefuseRange(ParameterTab tab, const char* control, std::string_view text) {
  return ParameterRefusal{std::string(text), RefusalKind::kRange, tab, control};
}

Refusal CheckStandard(const ParameterTexts& t) {
  constexpr auto kTab = ParameterTab::kStandardTab;
  if (N(t.EntryHeight) <= 0) {
    return RefuseRange(kTab, "txtEntryHeight", kInvalidEntryHeight);
  }
  if (N(t.DepthCover) <= 0) {
    return RefuseRange(kTab, "txtDepthCover", kInvalidDepthCover);
  }
  if (const auto fault = CheckFieldRange(t.XcutAngle, kLeastXcutAngle, kGreatestXcutAngle, "")) {
    return RefuseRange(kTab, "txtXcutAngle", *fault);
  }
  if (N(t.EntryWidth) <= 0) {
    return RefuseRange(kTab, "txtEntryWidth", kInvalidEntryWidth);
  }
  if (N(t.XcutSpacing) <= 0 || N(t.EntryWidth) >= N(t.XcutSpacing)) {
    return RefuseRange(kTab, "txtXcutSpacing", kInvalidXcutSpacing);
  }
  return std::nullopt;
}

Refusal CheckDefaults(const ParameterTexts& t) {
  constexpr auto kTab = ParameterTab::kDefaultsTab;
  if (N(t.CoalStrength) <= 0) {
    return RefuseRange(kTab, "txtCoalStrength", kInvalidInSituStrength);
  }
  if (N(t.UnitWeight) <= 0) {
    return RefuseRange(kTab, "txtUnitWeight", kInvalidOverburdenWeight);
  }
  if (N(t.BreadthAMZ) <= 0) {
    return RefuseRange(kTab, "txtBreadthAMZ", kInvalidBreadthAMZ);
  }
  if (N(t.ArchFactor) < kLeastArchFactor || N(t.ArchFactor) > kGreatestArchFactor) {
    return RefuseRange(kTab, "txtArchFactor", kInvalidArchFactor);
  }
  return std::nullopt;
}

// Rows A and B are tested from one side gob on, and both send the person to the first slab cut.
Refusal CheckRows(const ParameterTexts& t) {
  constexpr auto kTab = ParameterTab::kRetreatTab;
  if (t.RowC == 1 && N(t.WidthRowC) <= 0) {
    return RefuseRange(kTab, "txtWidthC", kInvalidWidthRowC);
  }
  if (t.RowD == 1 && N(t.WidthRowD) <= 0) {
    return RefuseRange(kTab, "txtWidthD", kInvalidWidthRowD);
  }
  const bool sideGob = t.LoadingCondition >= PanelLoading::kWithFirstSideGob;
  if (t.RowA == 1 && sideGob && N(t.SlabcutFirstGob) > 0) {
    return ParameterRefusal{std::string(kSlabCutAtRowA), RefusalKind::kLogic, kTab, "txtSlabcutFirstGob"};
  }
  if (t.RowB == 1 && sideGob && N(t.SlabcutSecondGob) > 0) {
    return ParameterRefusal{std::string(kSlabCutAtRowB), RefusalKind::kLogic, kTab, "txtSlabcutFirstGob"};
  }
  return std::nullopt;
}

// One gob's boxes and words.
struct Gob {
  const char* Word;
  const char* Suffix;  // of the controls' names
  const std::string& Extent;
  const std::string& Angle;
  RefusalKind ExtentKind;
};

Refusal CheckGob(const Gob& gob) {
  constexpr auto kTab = ParameterTab::kRetreatTab;
  if (N(gob.Extent) < 0) {
    return ParameterRefusal{fmt::format("Invalid extent of {} gob", gob.Word), gob.ExtentKind, kTab,
                            fmt::format("txtExtent{}", gob.Suffix)};
  }
  if (N(gob.Angle) < 0 || N(gob.Angle) > kGreatestAbutmentAngle) {
    return ParameterRefusal{fmt::format("Invalid abutment angle of {} gob", gob.Word), RefusalKind::kRange,
                            kTab, fmt::format("txtAbutmentAngle{}", gob.Suffix)};
  }
  return std::nullopt;
}

Refusal CheckBarrier(const Gob& gob, const std::string& barrier, const std::string& slabCut) {
  constexpr auto kTab = ParameterTab::kRetreatTab;
  if (N(barrier) < 0) {
    return ParameterRefusal{fmt::format("Invalid extent of barrier of {} gob", gob.Word), RefusalKind::kRange,
                            kTab, fmt::format("txtBarrier{}", gob.Suffix)};
  }
  if (N(slabCut) < 0 || N(slabCut) > N(barrier)) {
    return ParameterRefusal{fmt::format("Invalid extent of slab cut in barrier of {} gob", gob.Word),
                            RefusalKind::kRange, kTab, fmt::format("txtSlabcut{}", gob.Suffix)};
  }
  return std::nullopt;
}

Refusal CheckGobs(const ParameterTexts& t) {
  const Gob active{"active", "ActiveGob", t.ExtentActiveGob, t.AbutmentAngleActiveGob, RefusalKind::kRange};
  const Gob first{"first", "FirstGob", t.ExtentFirstGob, t.AbutmentAngleFirstGob, RefusalKind::kRange};
  const Gob second{"second", "SecondGob", t.ExtentSecondGob, t.AbutmentAngleSecondGob, RefusalKind::kLogic};
  Refusal refusal = CheckGob(active);
  if (!refusal && t.LoadingCondition >= PanelLoading::kWithFirstSideGob) {
    refusal = CheckGob(first);
    refusal = refusal ? refusal : CheckBarrier(first, t.BarrierFirstGob, t.SlabcutFirstGob);
  }
  if (!refusal && t.LoadingCondition == PanelLoading::kWithBothSideGobs) {
    refusal = CheckGob(second);
    refusal = refusal ? refusal : CheckBarrier(second, t.BarrierSecondGob, t.SlabcutSecondGob);
  }
  return refusal;
}

Refusal CheckEntries(const ParameterTexts& t) {
  for (int i = 1; i < EntriesOf(t); ++i) {
    const std::string control = fmt::format("txtXcutCenters({})", i);
    if (N(t.XcutCenters[i]) <= 0) {
      return RefuseRange(ParameterTab::kStandardTab, control.c_str(), "Invalid entry spacing");
    }
    if (N(t.EntryWidth) >= N(t.XcutCenters[i])) {
      return RefuseRange(ParameterTab::kStandardTab, control.c_str(),
                         "Entry spacing should be more than Entry Width");
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<ParameterRefusal> CheckParameters(const ParameterTexts& texts) {
  for (const auto check : {CheckStandard, CheckDefaults, CheckRows, CheckGobs, CheckEntries}) {
    if (auto refusal = check(texts)) {
      return refusal;
    }
  }
  return std::nullopt;
}

}  // namespace korva
