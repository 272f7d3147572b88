// The words of the interpretive warnings.
#include <fmt/format.h>

#include "core/DataBase.h"
#include "core/Format.h"
#include "core/Tables.h"
#include "core/Text.h"
#include "reports/PageText.h"
#include "reports/Rules.h"

namespace korva {

namespace {

constexpr std::string_view kMoreOnFactors = "  For more information, consult Help/Stability Factors.";

std::string_view Named(const RuleLimit& limit, UnitSystem units) {
  return units == kMetric ? limit.Metric : limit.English;
}

constexpr std::string_view kLowFactor =
    "A. Analysis of the KORVA case history data base suggests that the risk of pillar failure is increased "
    "when the KORVA SF is less than 1.5.";

constexpr std::string_view kSlenderPillars =
    "Analysis of the KORVA case history data base suggests that large groups of slender pillars, with "
    "width-to-height ratios of less than 4.0, may collapse suddenly.  To minimize this potentially severe "
    "hazard, an KORVA SF of at least 2.0 is recommended when such slender pillars are used.  An "
    "alternative is to minimize the size of the area supported by slender pillars.";

constexpr std::string_view kArchInUse =
    "The Pressure Arch loading model used in KORVA v6 was derived from analysis of case history data from "
    "the Western and Central Appalachian coalfields in the US.  The overburden rock in these two "
    "coalfields is relatively strong.  No research has been conducted to test the applicability of the "
    "pressure arch loading model in other coalfields.";

// The text for a depth between 650 and 1000 ft, which names the depth and the factor asked for there. Where
// that factor shows as 1.50 there is no second limit to name.
std::string ModerateDepthText(const RuleFacts& facts, const Project& project, UnitSystem units) {
  std::string text = fmt::format(
      "B. Analysis of the KORVA case history data base suggests that when the depth of cover is {} {}, the "
      "risk of pillar failure is increased when the KORVA SF is less than 1.5 ",
      Format(project.DepthCover, "0"), BareUnit(UnitLabel(UnitKind::kLength, units)));
  const std::string crit = Format(facts.CritSF, "0.00");
  if (crit != "1.50") {
    text += fmt::format("or ({} if the panel width is less than {} and the Barrier Pillar SF exceeds 2.0.) ",
                        crit, Named(kWideLimit, units));
  }
  return text;
}

std::string DeepCoverText(UnitSystem units) {
  return fmt::format(
      "C. Analysis of the KORVA case history data base suggests that when the depth of cover is greater "
      "than {}, the risk of pillar failure is increased when the KORVA SF is less than 1.5 or (1.3 if the "
      "panel width is less than {} and the Barrier Pillar SF exceeds 2.0.) ",
      Named(kDeepLimit, units), Named(kWideLimit, units));
}

std::string LowBarrierText(UnitSystem units) {
  return fmt::format(
      "Analysis of the KORVA case history data base suggests that when the depth of cover is greater than "
      "{}, the risk of pillar failure is increased when the Barrier Pillar SF is less than 1.5. ",
      Named(kModerateLimit, units));
}

std::string ExtremeDepthText(UnitSystem units) {
  return fmt::format(
      "The KORVA database includes only 7 retreat mining cases where the depth of cover exceeded {0}, and "
      "three of those were failures.  Retreat mining should be avoided when the depth of cover exceeds {0}",
      Named(kExtremeLimit, units));
}

std::string BurstText(UnitSystem units) {
  return fmt::format(
      "The KORVA database includes 44 failures that occurred where the depth of cover exceeded {0}.  Of "
      "these, 20 were caused by coal bursts.  BRANTEL recommends that deep cover room-and-pillar retreat "
      "coal mines conduct regular burst hazard assessments for any areas where retreat mining is proposed "
      "and the depth of cover exceeds {0}. ",
      Named(kDeepLimit, units));
}

}  // namespace

WarningTexts ComposeWarnings(const RuleOutcome& outcome, const Project& project, UnitSystem units) {
  WarningTexts texts;
  const auto onPage = [&](Rule rule, std::string_view text) {
    if (outcome.Holds(rule)) {
      texts.Page += WrapText(text, kPageWidth).append(kLineEnd);
    }
  };
  const auto onBoth = [&](Rule rule, const std::string& text, std::string_view pageEnd) {
    if (outcome.Holds(rule)) {
      onPage(rule, text + std::string(pageEnd));
      texts.Popup.append(text).append(kLineEnd).append(kLineEnd);
    }
  };

  onBoth(Rule::kLowFactor, std::string(kLowFactor), kMoreOnFactors);
  onBoth(Rule::kModerateDepth, ModerateDepthText(outcome.Facts, project, units), kMoreOnFactors);
  onBoth(Rule::kDeepCover, DeepCoverText(units), kMoreOnFactors);
  onBoth(Rule::kLowBarrierFactor, LowBarrierText(units), kMoreOnFactors);
  onBoth(Rule::kSlenderPillars, std::string(kSlenderPillars), kMoreOnFactors);
  onBoth(Rule::kExtremeDepth, ExtremeDepthText(units), fmt::format(".{}", kMoreOnFactors));
  onBoth(Rule::kBurst, BurstText(units), "");
  onPage(Rule::kEnteredBreadth, kBreadthWarning);
  onPage(Rule::kOtherUnitWeight, kDataBaseUnitWeight.Warning);
  onPage(Rule::kOtherCoalStrength, kDataBaseStrength.Warning);
  onPage(Rule::kTwoSideGobsDeep, kTwoSideGobsWarning);
  onPage(Rule::kOtherAbutmentAngles, kDataBaseAngle.Warning);
  onPage(Rule::kEnteredArchFactor, kArchFactorWarning);
  onPage(Rule::kArchInUse, kArchInUse);
  return texts;
}

}  // namespace korva
