#include "input/CheckParameters.h"

#include <fmt/format.h>

#include "input/CheckFieldRange.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

using Refusal = std::optional<ParameterRefusal>;

constexpr double kLeastXcutAngle = 30;
constexpr double kGreatestXcutAngle = 90;
constexpr double kGreatestAbutmentAngle = 90;
constexpr double kLeastArchFactor = 0.28;

double N(const std::string& text) {
  return FieldNumber(text);
}

Refusal RefuseRange(ParameterTab tab, const char* control, const char* text) {
  return ParameterRefusal{text, RefusalKind::kRange, tab, control};
}

Refusal CheckStandard(const ParameterTexts& t) {
  constexpr auto kTab = ParameterTab::kStandardTab;
  if (N(t.EntryHeight) <= 0) {
    return RefuseRange(kTab, "txtEntryHeight", "Invalid entry height");
  }
  if (N(t.DepthCover) <= 0) {
    return RefuseRange(kTab, "txtDepthCover", "Invalid depth of cover");
  }
  if (const auto fault = CheckFieldRange(t.XcutAngle, kLeastXcutAngle, kGreatestXcutAngle, "")) {
    return RefuseRange(kTab, "txtXcutAngle", fault->c_str());
  }
  if (N(t.EntryWidth) <= 0) {
    return RefuseRange(kTab, "txtEntryWidth", "Invalid entry width");
  }
  if (N(t.XcutSpacing) <= 0 || N(t.EntryWidth) >= N(t.XcutSpacing)) {
    return RefuseRange(kTab, "txtXcutSpacing", "Invalid crosscut spacing");
  }
  return std::nullopt;
}

Refusal CheckDefaults(const ParameterTexts& t) {
  constexpr auto kTab = ParameterTab::kDefaultsTab;
  if (N(t.CoalStrength) <= 0) {
    return RefuseRange(kTab, "txtCoalStrength", "Invalid in situ coal strength");
  }
  if (N(t.UnitWeight) <= 0) {
    return RefuseRange(kTab, "txtUnitWeight", "Invalid overburden unit weight");
  }
  if (N(t.BreadthAMZ) <= 0) {
    return RefuseRange(kTab, "txtBreadthAMZ", "Invalid breadth of AMZ");
  }
  if (N(t.ArchFactor) < kLeastArchFactor || N(t.ArchFactor) > 1) {
    return RefuseRange(kTab, "txtArchFactor", "Invalid Arch Factor");
  }
  return std::nullopt;
}

// Rows A and B are tested from one side gob on, and both send the person to the first slab cut.
Refusal CheckRows(const ParameterTexts& t) {
  constexpr auto kTab = ParameterTab::kRetreatTab;
  if (t.RowC == 1 && N(t.WidthRowC) <= 0) {
    return RefuseRange(kTab, "txtWidthC", "Invalid Pillar Width for Row C");
  }
  if (t.RowD == 1 && N(t.WidthRowD) <= 0) {
    return RefuseRange(kTab, "txtWidthD", "Invalid Pillar Width for Row D");
  }
  const bool sideGob = t.LoadingCondition >= PanelLoading::kWithFirstSideGob;
  if (t.RowA == 1 && sideGob && N(t.SlabcutFirstGob) > 0) {
    return ParameterRefusal{"Cannot take slab cut from first side barrier when Row A pillars are left",
                            RefusalKind::kLogic, kTab, "txtSlabcutFirstGob"};
  }
  if (t.RowB == 1 && sideGob && N(t.SlabcutSecondGob) > 0) {
    return ParameterRefusal{"Cannot take slab cut from second side barrier when Row B pillars are left",
                            RefusalKind::kLogic, kTab, "txtSlabcutFirstGob"};
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
