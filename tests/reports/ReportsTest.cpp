#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "commands/Calculate.h"
#include "reports/Reports.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::AtCondition;
using test::DevelopmentPanel;
using test::TwoSideGobs;

// The pages of a panel.
class Pages {
 public:
  explicit Pages(const Project& p, std::int16_t units = kEnglish, const OptionSettings& options = {})
      : project_(p),
        options_(options),
        units_(units),
        run_(EvaluateProject(p, units, options)),
        output_(ConvertResultUnits(run_.Run, {options.OutputStrUnits, options.OutputStrGradUnits})) {}

  std::string Factors() const {
    return ReportStabilityFactors(run_.Run, project_, run_.Rules,
                                  ComposeWarnings(run_.Rules, project_, units_).Page);
  }
  std::string AMZ() const { return ReportAMZ(output_, project_); }
  std::string Pillars() const { return ReportPillars(output_, options_); }
  std::string Barriers() const { return ReportBarriers(output_, project_); }
  std::string Remnants() const { return ReportRemnants(output_, project_); }
  std::string Echo() const {
    return InputEcho(test::Stored(project_, units_), project_, "panel.KVL", options_);
  }

 private:
  Project project_;
  OptionSettings options_;
  std::int16_t units_;
  Evaluated run_;
  OutputResults output_;
};

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\r\n";
  }
  return text;
}

// What stands in front of the dots, or the whole line.
std::vector<std::string> LabelsOf(const std::string& page) {
  std::vector<std::string> labels;
  for (std::size_t at = 0, end = 0; (end = page.find("\r\n", at)) != std::string::npos; at = end + 2) {
    const std::string line = page.substr(at, end - at);
    labels.push_back(line.substr(0, line.find("..")));
  }
  return labels;
}

// The labels of `page` from line `first` (0 is the title) up to the line `last`, which is left out.
std::vector<std::string> LabelsBetween(const std::string& page, std::size_t first, const std::string& last) {
  std::vector<std::string> labels = LabelsOf(page);
  const auto end = std::find(labels.begin(), labels.end(), last);
  EXPECT_NE(end, labels.end()) << page;
  return {labels.begin() + static_cast<std::ptrdiff_t>(first), end};
}

using Labels = std::vector<std::string>;

void ExpectHolds(const std::string& page, const std::string& text, bool expected = true) {
  EXPECT_EQ(page.find(text) != std::string::npos, expected) << text << "\nin\n" << page;
}

TEST(ReportStabilityFactors, DevelopmentAlone) {
  const std::string page = Lines(
      {"[KORVA STABILITY FACTORS]", "", "Development (KORVA)..........................  4.41", "", "", ""});
  EXPECT_EQ(Pages(DevelopmentPanel()).Factors(), page);
  Project p = DevelopmentPanel();
  p.ExtentActiveGob = 500;  // plays no part at this condition
  EXPECT_EQ(Pages(p).Factors(), page);
}

TEST(ReportStabilityFactors, CasesAndBarriers) {
  const Labels one = {"Development (KORVA)",
                      "*Development loading includes one side gob.",
                      "Retreat (KORVA)",
                      "*Retreat loading includes one side gob.",
                      "",
                      "[BARRIER PILLAR STABILITY FACTORS]",
                      "",
                      "[Development]",
                      "FIRST SIDE GOB BARRIER",
                      "[Retreat]",
                      "FIRST SIDE GOB BARRIER",
                      "",
                      ""};
  EXPECT_EQ(LabelsBetween(Pages(AtCondition(TwoSideGobs(), 2)).Factors(), 2, "[WARNINGS]"), one);
  const Labels two = {"Development (KORVA)",
                      "*Development loading includes two side gobs.",
                      "",
                      "[BARRIER PILLAR STABILITY FACTORS]",
                      "",
                      "[Development]",
                      "FIRST SIDE GOB BARRIER",
                      "SECOND SIDE GOB BARRIER",
                      "",
                      ""};
  Project p = TwoSideGobs();
  p.ExtentActiveGob = 0;
  EXPECT_EQ(LabelsBetween(Pages(p).Factors(), 2, "[WARNINGS]"), two);
  ExpectHolds(Pages(TwoSideGobs()).Factors(),
              "\r\nSECOND SIDE GOB BARRIER......................  0.27\r\n\r\n\r\n[WARNINGS]\r\n\r\nB. ");
}

// A sound panel at 700 ft whose first barrier alone is below 1.5 by its 64-bit value only: the heading stands
// alone.
TEST(ReportStabilityFactors, HeadingWithoutText) {
  RuleOutcome outcome;
  outcome.RuleFlags[8] = outcome.AnyWarning = true;
  Calculation run;
  run.Work.LoadCond = kNoGob;
  EXPECT_TRUE(ReportStabilityFactors(run, DevelopmentPanel(), outcome, "")
                  .ends_with(Lines({"", "", "[WARNINGS]", "", ""})));
}

TEST(ReportAMZ, RowsByCondition) {
  const auto rows = [](int condition, double extent) {
    Project p = AtCondition(TwoSideGobs(), condition);
    p.ExtentActiveGob = extent;
    return LabelsBetween(Pages(p).AMZ(), 7, "R-Factor for front abutment is the percent of the total front");
  };
  const std::string star = "*Adjusted by Pressure Arch Factor";
  EXPECT_EQ(rows(0, 1000), (Labels{"Tributary Area Load on AMZ", "", "", "DEVELOPMENT LOADINGS ON AMZ (tons)",
                                   "Tributary Area*", "TOTAL DEVELOPMENT", star, "", ""}));
  EXPECT_EQ(rows(1, 1000),
            (Labels{"Tributary Area Load on AMZ", "Front Abutment Load", "", "R-FACTOR For Front Abutment",
                    "", "DEVELOPMENT LOADINGS ON AMZ (tons)", "Tributary Area*", "TOTAL DEVELOPMENT", star,
                    "", "RETREAT LOADINGS ON AMZ (tons)", "Tributary Area*", "Front abutment load*",
                    "TOTAL RETREAT", star, "", ""}));
  EXPECT_EQ(rows(2, 1000), (Labels{"Tributary Area Load on AMZ",
                                   "Front Abutment Load",
                                   "First Side Abutment Load",
                                   "",
                                   "R-FACTOR For Front Abutment",
                                   "R-FACTOR For First Side Abutment",
                                   "",
                                   "DEVELOPMENT LOADINGS ON AMZ (tons)",
                                   "Tributary Area*",
                                   "1st Side Abutment load*",
                                   "1st Side Barrier LTRANSBAR",
                                   "TOTAL DEVELOPMENT",
                                   star,
                                   "",
                                   "RETREAT LOADINGS ON AMZ (tons)",
                                   "Tributary Area*",
                                   "Front abutment load*",
                                   "1st Side Abutment load*",
                                   "1st Side Barrier LTRANSREM*",
                                   "1st Side Barrier LTRANSBAR",
                                   "TOTAL RETREAT",
                                   star,
                                   "",
                                   ""}));
  EXPECT_EQ(rows(3, 0),
            (Labels{"Tributary Area Load on AMZ", "Front Abutment Load", "First Side Abutment Load",
                    "Second Side Abutment Load", "", "R-FACTOR For Front Abutment",
                    "R-FACTOR For First Side Abutment", "R-FACTOR For Second Side Abutment", "",
                    "DEVELOPMENT LOADINGS ON AMZ (tons)", "Tributary Area*", "1st Side Abutment load*",
                    "1st Side Barrier LTRANSBAR", "2nd Side Abutment load*", "2nd Side Barrier LTRANSBAR",
                    "TOTAL DEVELOPMENT", star, "", ""}));
}

// 24.98 million lb over a gob's edge and 3280500 tons of tributary load, as worked for the model.
TEST(ReportAMZ, ValuesAndUnits) {
  const std::string page = Pages(TwoSideGobs()).AMZ();
  ExpectHolds(page, Lines({"[DATA ABOUT THE ACTIVE MINING ZONE (AMZ)]", "",
                           "Panel Width.............................300.0 (ft)",
                           "Depth to Panel Width Ratio..............3.0",
                           "AMZ Breadth.............................150.0 (ft)",
                           "AMZ Area................................45000.0 (ft)*(ft)",
                           "Extraction Ratio within AMZ.............0.50",
                           "Tributary Area Load on AMZ..............3.28E+06 (tons)",
                           "Front Abutment Load.....................12593 (tons)/(ft)"}));
  ExpectHolds(page, Lines({"R-FACTOR For Second Side Abutment.......0.331"}));
  ExpectHolds(page, Lines({"2nd Side Barrier LTRANSREM*.............4.06E+05",
                           "2nd Side Barrier LTRANSBAR..............1.85E+06",
                           "TOTAL RETREAT...........................8.24E+06"}));
  EXPECT_TRUE(page.ends_with(
      Lines({"LTRANSREM is the load transferred to the AMZ from the remnant barrier",
             "between the side and active gob if the remnant's SF is less than 1.5.", "", ""})));
}

TEST(ReportPillars, TableAndReminder) {
  Project p = DevelopmentPanel();
  test::SetRows(p, 1, 60);
  const std::string table = Lines(
      {"[PILLAR PARAMETERS]", "", "PILLAR         ENTRY       MINIMUM       MAXIMUM",
       "              CENTER     DIMENSION     DIMENSION", "                (ft)          (ft)          (ft)",
       "     1         60.00         40.00         60.00", "",
       "PILLAR          AREA      STRENGTH  LOAD-BEARING", "                                        CAPACITY",
       "           (ft)*(ft)         (psi)        (tons)", "     1      2.40E+03       3096.00      5.35E+05",
       "", "TOTAL LOAD-BEARING CAPACITY OF PILLARS WITHIN AMZ: 6.69E+05 (tons)"});
  EXPECT_EQ(Pages(p).Pillars(),
            table + Lines({"", "To view the distribution of Pillar Load Bearing Capacity",
                           "select 'View Plots->Settings->Pillar Load Bearing Capacity'", ""}));
  EXPECT_EQ(Pages(p, kEnglish, {.PrintPlotReminder = 0}).Pillars(), table + Lines({""}));
}

TEST(ReportBarriers, NoneBelowOneSideGob) {
  for (const int condition : {0, 1}) {
    const Pages pages(AtCondition(TwoSideGobs(), condition));
    EXPECT_EQ(LabelsOf(pages.Barriers()), (Labels{"[BARRIER PILLAR PARAMETERS]", "", "***none***", ""}));
    EXPECT_EQ(LabelsOf(pages.Remnants()),
              (Labels{"[REMNANT PILLAR AND LEAVE PILLAR PARAMETERS]", "", "***none***", ""}));
  }
}

TEST(ReportBarriers, TwoBarriers) {
  EXPECT_EQ(Pages(TwoSideGobs()).Barriers(), Lines({"[BARRIER PILLAR PARAMETERS]",
                                                    "",
                                                    "BARRIER       WIDTH       STRENGTH      LOAD-BEARING",
                                                    " PILLAR        (ft)          (psi)   CAPACITY (tons)",
                                                    "  First       60.00        5436.00          3.52E+06",
                                                    " Second       25.00        2601.00          7.02E+05",
                                                    "",
                                                    "",
                                                    "[BARRIER PILLAR LOADS - Development]",
                                                    "LOAD (tons)              1st BARRIER     2nd BARRIER",
                                                    "Tributary Area              7.65E+05        3.83E+05",
                                                    "Side Abutment               1.09E+06        5.78E+05",
                                                    "Pressure Arch               7.55E+05        8.70E+05",
                                                    "TOTAL                       2.61E+06        1.83E+06",
                                                    "",
                                                    "Stability Factor                1.35            0.38",
                                                    "LTRANSBAR                   2.83E+05        1.45E+06",
                                                    "",
                                                    "",
                                                    "[BARRIER PILLAR LOADS - Retreat]",
                                                    "LOAD (tons)              1st BARRIER     2nd BARRIER",
                                                    "Tributary Area              7.65E+05        3.83E+05",
                                                    "Front Abutment              5.06E+05        3.30E+05",
                                                    "Side Abutment               1.09E+06        5.78E+05",
                                                    "Pressure Arch               1.11E+06        1.27E+06",
                                                    "TOTAL                       3.48E+06        2.56E+06",
                                                    "",
                                                    "Stability Factor                1.01            0.27",
                                                    "LTRANSBAR                   1.08E+06        1.85E+06",
                                                    "",
                                                    ""}));
}

TEST(ReportBarriers, OneBarrierWithBleederRow) {
  Project p = AtCondition(TwoSideGobs(), 2);
  p.RowC = p.RowD = 1;
  p.WidthRowC = p.WidthRowD = 50;
  p.ExtentActiveGob = 0;
  const std::string page = Pages(p).Barriers();
  const Labels labels = LabelsOf(page);
  ASSERT_GT(labels.size(), 6U);
  EXPECT_TRUE(labels[4].ends_with("*"));
  EXPECT_EQ(Labels(labels.begin() + 5, labels.begin() + 8),
            (Labels{" *Includes contribution from row 'C' bleeder pillar", "", ""}));
  ExpectHolds(page, "2nd BARRIER", false);
  ExpectHolds(page, "row 'D'", false);
  ExpectHolds(page, "Front Abutment", false);
  ExpectHolds(page, "Retreat", false);
  EXPECT_TRUE((labels.end() - 8)->starts_with("TOTAL"));  // and no empty line behind it
  EXPECT_TRUE((labels.end() - 7)->starts_with("Stability Factor"));
  EXPECT_EQ(Labels(labels.end() - 5, labels.end()),
            Labels(5));  // two behind the table, three that close the page
}

TEST(ReportRemnants, RowsCAndD) {
  Project p = TwoSideGobs();
  p.RowC = p.RowD = 1;
  p.WidthRowC = p.WidthRowD = 50;
  const std::string page = Pages(p).Remnants();
  const Labels labels = LabelsOf(page);
  EXPECT_EQ(Labels(labels.begin(), labels.begin() + 5),
            (Labels{"[REMNANT PILLAR AND LEAVE PILLAR PARAMETERS]", "",
                    "[REMNANT BARRIER PILLARS BETWEEN GOBS - DATA]",
                    "REMNANT       WIDTH      LENGTH        LOAD BEARING",
                    " PILLAR        (ft)        (ft)     CAPACITY (tons)"}));
  EXPECT_EQ(labels[5].substr(0, 31), "  First        40.0      160.00");
  EXPECT_TRUE(labels[5].ends_with("*") && !labels[5].ends_with("**"));
  EXPECT_TRUE(labels[6].ends_with("**"));
  // Row C by hand: (0.64 + 0.54 50/6 - 0.18 50^2/(60 x 6)) 900 = 3501 psi on 50 x 60 ft2, against 70 x 80 x
  // 900 x 162 lb.
  ExpectHolds(page,
              Lines({"[LEAVE PILLAR PARAMETERS]", " PILLAR  STRENGTH    LOAD BEARING   TRIBUTARY      EXCESS",
                     "    ROW                  CAPACITY        AREA        LOAD",
                     "            (psi)          (tons)      (tons)      (tons)",
                     "      C    3501.0        7.56E+05    4.08E+05    6.52E+05*",
                     "      D    3501.0        7.56E+05    4.08E+05    6.52E+05*",
                     "*Adjusted for effective length of the remnant barrier."}));
}

TEST(ReportRemnants, WithoutLeaveRows) {
  const std::string page = Pages(AtCondition(TwoSideGobs(), 2)).Remnants();
  ExpectHolds(page, "[LEAVE PILLAR", false);
  ExpectHolds(page, " Second", false);
  ExpectHolds(Pages(TwoSideGobs()).Remnants(),
              Lines({"REMNANT    TOTAL LOAD     STABILITY       LFBAR   LTRANSREM",
                     " PILLAR        (tons)        FACTOR      (tons)      (tons)",
                     "  First      3.19E+06          0.55    7.09E+05    4.51E+05",
                     " Second      2.86E+06          0.26    7.09E+05    5.89E+05", ""}));
}

TEST(InputEcho, Head) {
  const Project p = DevelopmentPanel();
  EXPECT_TRUE(Pages(p).Echo().starts_with(
      Lines({"KORVA-STROND module build: 1.1.05", "Project File: panel.KVL", "Units:  (ft) (psi) (tons)", "",
             "[PROJECT TITLE]", "Sample panel", "", "[PROJECT DESCRIPTION]", "", "",
             "[DEVELOPMENT GEOMETRY PARAMETERS]"})));
  ExpectHolds(Pages(p, kEnglish, {.OutputStrUnits = 1, .OutputStrGradUnits = 0}).Echo(),
              "Units:  (ft) (psf) (lbs)\r\n");
  ExpectHolds(Pages(p, kMetric).Echo(), "Units:  (m) (kPa) (kN)\r\n");
  EXPECT_TRUE(Pages(p, kEnglish, {.PrintModuleHeader = 0}).Echo().starts_with("[PROJECT TITLE]\r\n"));
}

TEST(InputEcho, GeometryAndDefaults) {
  Project p = DevelopmentPanel();
  p.EntryHeight = 0.1 + 0.2;  // 15 digits
  p.XcutAngle = 60.5;
  p.AMZAuto = p.ArchAuto = 0;
  p.ArchFactor = 0.85F;
  test::SetRows(p, 1, 60);
  const std::string metric = Pages(p, kMetric).Echo();
  ExpectHolds(metric,
              Lines({"Entry Height...........................................0.3 (m)",
                     "Depth of Cover.........................................400 (m)",
                     "Crosscut Angle.........................................60.5 (deg)",
                     "Entry Width............................................20 (m)",
                     "Number of Entries......................................2",
                     "Crosscut Spacing.......................................80 (m)",
                     "Center to Center Distance #1...........................60 (m)", "[DEFAULT PARAMETERS]",
                     "In Situ Coal Strength..................................900 (MPa)",
                     "Unit Weight of Overburden..............................162 (kN/m3)",
                     "Breadth of AMZ.........................................100 (m)", "AMZ set manualy",
                     "Pressure Arch Factor...................................0.85",
                     "Pressure Arch Factor set manualy",
                     "Calculation Mode.......................................KORVA Traditional Model",
                     "[RETREAT MINING PARAMETERS]"}));
}

TEST(InputEcho, SectionsByTheRecordsCondition) {
  const auto sections = [](int condition) {
    Project p = AtCondition(TwoSideGobs(), condition);
    p.SlabcutFirstGob = 0;
    p.RowB = p.RowD = 1;
    p.WidthRowD = 50;
    const Labels labels = LabelsOf(Pages(p).Echo());
    return Labels(std::find(labels.begin(), labels.end(), "[RETREAT MINING PARAMETERS]") + 1, labels.end());
  };
  const Labels active = {"[Active Gob]",
                         "Extent of Active Gob",
                         "Abutment Angle of Active Gob",
                         "Leave pillar Row 'A' in place",
                         "Leave pillar Row 'B' in place",
                         ""};
  const Labels first = {"[First Gob]",
                        "Extent of First Gob",
                        "Abutment Angle of First Gob",
                        "Barrier Pillar Width of First Gob",
                        "Depth of Slab Cut in Barrier Pillar of First Gob",
                        "Leave pillar Row 'C' in place"};
  const Labels second = {"[Second Gob]",
                         "Extent of Second Gob",
                         "Abutment Angle of Second Gob",
                         "Barrier Pillar Width of Second Gob",
                         "Depth of Slab Cut in Barrier Pillar of Second Gob",
                         "Leave pillar Row 'D' in place",
                         "Width of pillars in row 'D'"};
  const auto expected = [](const std::vector<Labels>& parts) {
    Labels all = {"Loading Condition", ""};
    for (const Labels& part : parts) {
      all.insert(all.end(), part.begin(), part.end());
    }
    all.insert(all.end(), 2, "");
    return all;
  };
  EXPECT_EQ(sections(0), expected({}));
  EXPECT_EQ(sections(1), expected({active}));
  EXPECT_EQ(sections(2), expected({active, first}));
  EXPECT_EQ(sections(3), expected({active, first, second}));
  EXPECT_EQ(sections(4), expected({}));  // runs like 2, but has neither name nor sections
  const std::string page = Pages(AtCondition(TwoSideGobs(), 1)).Echo();
  ExpectHolds(page, "Loading Condition..................ONE ACTIVE RETREAT SECTION\r\n");
  ExpectHolds(page, "Leave pillar Row 'B' in place..........................no\r\n");
}

}  // namespace
}  // namespace korva
