#include <gtest/gtest.h>

#include <limits>

#include "input/CheckFieldRange.h"
#include "input/CheckParameters.h"
#include "input/CheckSettings.h"
#include "input/ParameterWarnings.h"
#include "support/Panels.h"

namespace korva {
namespace {

using T = ParameterTexts;

// The texts of a panel between two gobs with all rows left and no slab cut, which the form takes.
T GoodTexts() {
  Project panel = test::TwoSideGobs();
  panel.SlabcutFirstGob = 0;
  panel.RowA = panel.RowB = panel.RowC = panel.RowD = 1;
  panel.WidthRowC = panel.WidthRowD = 30;
  return TextsOfProject(panel);
}

struct Change {
  NumberIndex Field;
  const char* Text;
};

std::optional<ParameterRefusal> Check(std::initializer_list<Change> changes, int condition = 3) {
  T texts = GoodTexts();
  texts.LoadingCondition = static_cast<PanelLoading>(condition);
  for (const auto& [member, text] : changes) {
    texts[member] = text;
  }
  return CheckParameters(texts);
}

TEST(CheckParameters, EachRowRefusesWithItsOwnWords) {
  const struct {
    NumberIndex Field;
    const char* Text;
    const char* Refusal;
    int Condition = 3;
  } rows[] = {
      {&Project::EntryHeight, "", "Invalid entry height"},
      {&Project::DepthCover, "-1", "Invalid depth of cover"},
      {&Project::XcutAngle, "", "Blank field not allowed"},
      {&Project::XcutAngle, " 29.99 ", "Value '29.99' is outside input range\r\nValid range is: 30-90"},
      {&Project::EntryWidth, "x", "Invalid entry width"},
      {&Project::XcutSpacing, "20", "Invalid crosscut spacing"},
      {&Project::CoalStrength, "0", "Invalid in situ coal strength"},
      {&Project::UnitWeight, "0", "Invalid overburden unit weight"},
      {&Project::BreadthAMZ, "0", "Invalid breadth of AMZ"},
      {&Project::ArchFactor, "0.279", "Invalid Arch Factor"},
      {&Project::ArchFactor, "1.01", "Invalid Arch Factor"},
      {&Project::WidthRowC, "0", "Invalid Pillar Width for Row C", 0},
      {&Project::WidthRowD, "", "Invalid Pillar Width for Row D"},
      {&Project::ExtentActiveGob, "-1", "Invalid extent of active gob", 0},
      {&Project::AbutmentAngleActiveGob, "91", "Invalid abutment angle of active gob", 0},
      {&Project::ExtentFirstGob, "-1", "Invalid extent of first gob", 2},
      {&Project::AbutmentAngleFirstGob, "-1", "Invalid abutment angle of first gob", 2},
      {&Project::BarrierFirstGob, "-1", "Invalid extent of barrier of first gob", 2},
      {&Project::SlabcutFirstGob, "-1", "Invalid extent of slab cut in barrier of first gob", 2},
      {&Project::ExtentSecondGob, "-1", "Invalid extent of second gob"},
      {&Project::AbutmentAngleSecondGob, "91", "Invalid abutment angle of second gob"},
      {&Project::BarrierSecondGob, "-1", "Invalid extent of barrier of second gob"},
      {&Project::SlabcutSecondGob, "-1", "Invalid extent of slab cut in barrier of second gob"},
  };
  for (const auto& row : rows) {
    const auto refusal = Check({{row.Field, row.Text}}, row.Condition);
    ASSERT_TRUE(refusal) << row.Refusal;
    EXPECT_EQ(refusal->Text, row.Refusal);
    EXPECT_EQ(refusal->Control, RowOf(row.Field).Control) << row.Refusal;
    EXPECT_EQ(refusal->Tab, RowOf(RowOf(row.Field).Frame).Tab) << row.Refusal;
    EXPECT_EQ(refusal->Kind, row.Field.At == NumberIndex(&Project::ExtentSecondGob).At ? RefusalKind::kLogic
                                                                                       : RefusalKind::kRange);
  }
  EXPECT_EQ(Check({{&Project::UnitWeight, "0"}, {&Project::BreadthAMZ, "0"}})->Control, "txtUnitWeight");
  for (const auto& [cut, words] :
       {std::pair{NumberIndex(&Project::SlabcutFirstGob), "first side barrier when Row A"},
        {NumberIndex(&Project::SlabcutSecondGob), "second side barrier when Row B"}}) {
    const auto refusal = Check({{cut, "5"}}, 2);
    EXPECT_EQ(refusal->Text, std::string("Cannot take slab cut from ") + words + " pillars are left");
    EXPECT_EQ(refusal->Kind, RefusalKind::kLogic);
    EXPECT_EQ(refusal->Control, "txtSlabcutFirstGob") << "of either side";
  }
}

TEST(CheckParameters, BoundsPassAndGobsOfOtherConditionsAreLeftAlone) {
  for (const char* angle : {"30", "90"}) {
    EXPECT_FALSE(Check({{&Project::XcutAngle, angle}}));
  }
  for (const char* factor : {"0.28", "1"}) {
    EXPECT_FALSE(Check({{&Project::ArchFactor, factor}}));
  }
  EXPECT_FALSE(Check({{&Project::ExtentFirstGob, "-1"},
                      {&Project::BarrierFirstGob, "-1"},
                      {&Project::SlabcutSecondGob, "9"}},
                     1));
  EXPECT_FALSE(Check({{&Project::ExtentSecondGob, "-1"}, {&Project::AbutmentAngleSecondGob, "99"}}, 2));
  T texts = GoodTexts();
  texts[&Project::RowA] = 0;
  texts[&Project::SlabcutFirstGob] = texts[&Project::BarrierFirstGob];
  EXPECT_FALSE(CheckParameters(texts));
}

TEST(CheckParameters, EntrySpacingsAreTestedUpToTheNumberOfEntries) {
  T texts = GoodTexts();
  texts.XcutCenters[6] = "0";  // six entries have five distances
  EXPECT_FALSE(CheckParameters(texts));
  texts.XcutCenters[5] = "20";
  EXPECT_EQ(CheckParameters(texts)->Text, "Entry spacing should be more than Entry Width");
  EXPECT_EQ(CheckParameters(texts)->Control, "txtXcutCenters(5)");
  texts.XcutCenters[2] = "";
  EXPECT_EQ(CheckParameters(texts)->Text, "Invalid entry spacing");
  for (const char* none : {"0", "", "-3"}) {
    texts.NumberEntries = none;
    EXPECT_FALSE(CheckParameters(texts));
  }
}

TEST(ParameterTexts, GoThereAndBackAndTellChanges) {
  const Project panel = test::TwoSideGobs();
  const T texts = TextsOfProject(panel);
  EXPECT_EQ(texts[&Project::CoalStrength], "900");
  EXPECT_FALSE(ParametersChanged(texts, panel));
  Project back = panel;
  StoreParameters(texts, back);
  EXPECT_EQ(back, panel);

  T other = texts;
  other.XcutCenters[9] = "1";  // beyond the entries
  EXPECT_FALSE(ParametersChanged(other, panel));
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    other = texts;
    other.Numbers[i] = "7.5";
    EXPECT_EQ(ParametersChanged(other, panel), i != NumberIndex(&Project::ArchFactor).At) << i;
  }
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    other = texts;
    other.Flags[i] = !other.Flags[i];
    EXPECT_TRUE(ParametersChanged(other, panel)) << i;
  }
  other = texts;
  other.XcutCenters[5] = other[&Project::WidthRowD] = "61";
  StoreParameters(other, back);
  EXPECT_EQ(back.XcutCenters[5], 61);
  EXPECT_EQ(back.WidthRowD, 61);
}

TEST(ParameterWarnings, ComeForOtherValuesThanTheDataBases) {
  EXPECT_FALSE(WarningOn("21.0", kDataBaseAngle, kMetric));
  EXPECT_TRUE(WarningOn("", kDataBaseAngle, kEnglish));
  EXPECT_FALSE(WarningOn("900", kDataBaseStrength, kEnglish));
  EXPECT_FALSE(WarningOn("6.21", kDataBaseStrength, kMetric));
  EXPECT_TRUE(WarningOn("900", kDataBaseStrength, kMetric));
  EXPECT_FALSE(WarningOn("25.45 kN", kDataBaseUnitWeight, kMetric));
  EXPECT_TRUE(WarningOn("25.45", kDataBaseUnitWeight, kEnglish));
}

TEST(ParameterTexts, FieldsSayWhatTheyTake) {
  const auto words = [](NumberIndex field) { return AcceptedText(RowOf(field)); };
  EXPECT_EQ(words(&Project::EntryWidth), "above 0");
  EXPECT_EQ(words(&Project::ExtentActiveGob), "0 or more");
  EXPECT_EQ(words(&Project::XcutAngle), "30 to 90 degrees");
  EXPECT_EQ(words(&Project::ArchFactor), "0.28 to 1");
  EXPECT_EQ(words(&Project::SlabcutFirstGob), "0 to the width of the barrier pillar");
  EXPECT_EQ(words(&Project::AbutmentAngleFirstGob), "0 to 90 degrees; the data base used 21");
  EXPECT_EQ(words(&Project::CoalStrength), "above 0; the data base used 900 psi (6.21 MPa)");
  EXPECT_EQ(words(&Project::UnitWeight), "above 0; the data base used 162 pcf (25.45 kN/m3)");
}

TEST(CheckSettings, RefusesInItsOrder) {
  const auto exists = [](const std::string& folder) { return folder == "/mine/" || folder == "/"; };
  const auto refused = [&](const SettingsTexts& texts) {
    const auto refusal = CheckSettings(texts, exists);
    return refusal ? refusal->Text + "|" + refusal->Control : "taken";
  };
  EXPECT_EQ(refused({" /mine ", "4096", "KVL7"}), "taken");
  EXPECT_EQ(refused({"/mine/", "16384", ""}), "taken");
  EXPECT_EQ(refused({"/none", "1", "?"}), "Invalid Path for Data Files|Text2");
  EXPECT_EQ(refused({"", "4096", ""}), "Invalid Path for Data Files|Text2");
  EXPECT_EQ(
      refused({"/mine", "4095", "?"}),
      "Size of Command History Window: Value '4095' is outside input range\r\nValid range is: 4096-16384|Text3");
  EXPECT_EQ(refused({"/mine", "5000", "K V"}), "Invalid character in file extension|Text1");
}

TEST(ParameterTexts, ANumberBeyondTheRecordsRangeIsTheLargestOne) {
  T texts = GoodTexts();
  texts[&Project::WidthRowC] = "1e39";
  texts[&Project::WidthRowD] = "-1e300";
  texts[&Project::DepthCover] = "1e999";
  Project project;
  StoreParameters(texts, project);
  EXPECT_EQ(project.WidthRowC, std::numeric_limits<float>::max());
  EXPECT_EQ(project.WidthRowD, std::numeric_limits<float>::lowest());
  EXPECT_EQ(project.DepthCover, std::numeric_limits<double>::max());
}

}  // namespace
}  // namespace korva
