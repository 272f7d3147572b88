// The pages of the laminated model, alone and beside the traditional one.
#include <algorithm>

#include "core/Format.h"
#include "core/Tables.h"
#include "reports/PageText.h"
#include "reports/RoundSF.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

constexpr std::size_t kLabelWidth = 45;
constexpr std::size_t kFactorWidth = 6;
constexpr std::size_t kColumn = 14;
const std::string kGap(10, ' ');

template <class Number>
std::string FactorText(Number value) {
  return PadLeft(Format(value, kFactorPattern), kFactorWidth);
}

// What both builders derive from the project: how many cases there are, side gobs counted in, and which show.
struct Shown {
  int Cases = 0;
  int LastCase = 0;  // 0 development, 1 retreat
  int Sides = 0;

  explicit Shown(const Project& project) {
    Cases = LastStage(RunLoadingOf(project.LoadingCondition));
    const bool noRetreat = project.ExtentActiveGob == 0;
    LastCase = std::min(Cases, noRetreat ? 1 : 2) - 1;
    Sides = SideGobCount(RunLoadingOf(project.LoadingCondition));
  }
};

// Lines of the stability factors; `rest` gives what stands after a case's laminated factor.
template <class Rest>
void AddFactors(PageText& page, const StrondResults& results, const Shown& shown, Rest&& rest) {
  for (int c = 0; c <= shown.LastCase; ++c) {
    const auto stage = static_cast<std::size_t>(c);
    page.Line(DotPad(ModelStageTitles[stage], kLabelWidth), FactorText(results.StrondSF[c]), rest(c));
    if (shown.Sides > 0) {
      page.Line(SideGobNotes[2 * stage + static_cast<std::size_t>(shown.Sides - 1)]);
    }
  }
}

// A block of factors by case and side; `rest` gives what stands after a laminated one.
template <class Values, class Titles, class Rest>
void AddSideFactors(PageText& page, std::string_view heading, const Values& values, const Titles& titles,
                    const Shown& shown, Rest&& rest) {
  if (shown.Sides == 0) {
    return;
  }
  page.Line().Line(heading).Line();
  for (int c = 0; c <= shown.LastCase; ++c) {
    page.Line("[", StageTitles[static_cast<std::size_t>(c)], "]");
    for (int side = 0; side < shown.Sides; ++side) {
      page.Line(DotPad(titles[static_cast<std::size_t>(side)], kLabelWidth), FactorText(values[c][side]),
                rest(c, side));
    }
  }
}

std::string_view StressUnitName(UnitSystem units) {
  return units == kMetric ? "(Pa)" : "(psi)";
}

std::string PillarPage(const StrondResults& results, const Project& project, UnitSystem units) {
  const std::string length(UnitLabel(UnitKind::kLength, units));
  PageText page(kPillarsHeading);
  page.Line("PILLAR         ENTRY        PILLAR        PILLAR");
  page.Line("              CENTER         WIDTH      STRENGTH");
  page.Line(PadLeft(length, 20), PadLeft(length, kColumn), PadLeft(StressUnitName(units), kColumn));
  for (int pillar = 1; pillar < project.NumberEntries; ++pillar) {
    const double center = project.XcutCenters[pillar];
    page.Line(PadLeft(Format(static_cast<double>(pillar), "0"), 6),
              PadLeft(Format(center, kFactorPattern), kColumn),
              PadLeft(Format(center - project.EntryWidth, kFactorPattern), kColumn),
              PadLeft(Format(results.StrondPillarStrength[pillar - 1], kFactorPattern), kColumn));
  }
  return page.Line().Line().Take();
}

// Barriers or remnants. The rows have no line end of their own: with two side gobs both stand in one line.
template <class Data>
std::string SupportPage(std::string_view title, std::string_view heading, const Data& data, UnitSystem units,
                        const Shown& shown) {
  constexpr double kNewtonsPerKN = 1000;
  const std::string length(UnitLabel(UnitKind::kLength, units));
  const std::string load = units == kMetric ? "(kN)" : "(tons)";
  const double loadUnit = units == kMetric ? kNewtonsPerKN : kPoundsPerTon;
  PageText page(title);
  page.Line(heading);
  page.Line("PILLAR                                     DEVELOPMENT       RETREAT");
  page.Line(PadLeft(length + "x" + length, 26), PadLeft(StressUnitName(units), kColumn),
            PadLeft(load, kColumn), PadLeft(load, kColumn));
  const auto whole = [](double value) { return PadLeft(Format(value, "0"), kColumn); };
  for (int side = 0; side < shown.Sides; ++side) {
    const auto& values = data[side];
    page.Text(PadRight(SideTitles[static_cast<std::size_t>(side)], 12));
    page.Text(PadLeft(Format(values[1], "0"), kColumn)).Text(PadLeft(Format(values[0], "0"), kColumn));
    page.Text(whole(static_cast<double>(values[2]) / loadUnit))
        .Text(whole(static_cast<double>(values[3]) / loadUnit));
  }
  return page.Line().Line().Take();
}

void AddTables(StrondPages& pages, const StrondResults& results, const Project& project, UnitSystem units,
               const Shown& shown) {
  pages.Page[2] = PillarPage(results, project, units);
  pages.Page[3] =
      SupportPage(kBarriersHeading, "BARRIER               AREA      STRENGTH          LOAD          LOAD",
                  results.StrondBarrierData, units, shown);
  pages.Page[4] = SupportPage("[REMNANT PILLAR PARAMETERS]",
                              "REMNANT               AREA      STRENGTH          LOAD          LOAD",
                              results.StrondRemnantData, units, shown);
}

}  // namespace

StrondPages StrondReport(const StrondResults& results, const Project& project, UnitSystem units) {
  const Shown shown(project);
  const auto nothing = [](int, int = 0) { return std::string(); };
  PageText page("[KORVA-STROND STABILITY FACTORS]");
  AddFactors(page, results, shown, nothing);
  AddSideFactors(page, "[KORVA-STROND BARRIER PILLAR STABILITY FACTORS]", results.StrondBarrierSF,
                 BarrierTitles, shown, nothing);
  AddSideFactors(page, "[KORVA-STROND REMNANT PILLAR STABILITY FACTORS]", results.StrondRemnantSF,
                 RemnantTitles, shown, nothing);
  StrondPages pages;
  pages.Page[1] = page.Line().Take();
  AddTables(pages, results, project, units, shown);
  return pages;
}

StrondPages StrondCompareReport(const StrondResults& results, const Project& project, UnitSystem units,
                                const Calculation& traditional, FactorRounding roundKORVASF) {
  const Shown shown(project);
  const Results& out = traditional.Out;
  PageText page;
  page.Line(kFactorsHeading);
  page.Line(std::string(kLabelWidth, ' '), "KORVA-STROND", "   ", "KORVA-TRADITIONAL");
  AddFactors(page, results, shown,
             [&](int c) { return kGap + FactorText(RoundSF(out.SFKorva[kDevelopment + c], roundKORVASF)); });
  AddSideFactors(
      page, kBarrierFactorsHeading, results.StrondBarrierSF, BarrierTitles, shown,
      [&](int c, int side) { return kGap + FactorText(out.BarrierSF[kDevelopment + c][kFirstSide + side]); });
  // The traditional model has no development value for a remnant.
  AddSideFactors(
      page, "[REMNANT PILLAR STABILITY FACTORS]", results.StrondRemnantSF, RemnantTitles, shown,
      [&](int c, int side) { return c == 0 ? kGap : kGap + FactorText(out.RemnantSF[kFirstSide + side]); });
  StrondPages pages;
  pages.Page[1] = page.Line().Take();
  AddTables(pages, results, project, units, shown);
  return pages;
}

}  // namespace korva
