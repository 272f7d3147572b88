#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include "commands/Calculate.h"
#include "commands/ProjectSummary.h"
#include "support/Panels.h"
#include "support/ScriptedMessages.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

using test::DevelopmentPanel;
using test::Stored;
using test::TwoSideGobs;

// Runs `project` in its model as the form does and gives the factors as lines of text.
class Factors {
 public:
  std::vector<std::string> After(const Project& project) {
    korva.Stored = Stored(project);
    korva.ProjectCalc = project;
    korva.Places.TempRoot = folder_ / "";
    ScriptedMessages messages;
    if (project.CalcMode == kComparedModels) {
      messages.Expect("Results from the Traditional Overburden KORVA will be included");
    }
    EXPECT_TRUE(CalculateWorkingCopy(korva, messages, project.CalcMode));
    const FactorSummary summary = LastFactors(korva);
    std::vector<std::string> lines = {fmt::format("{}", fmt::join(summary.Columns, "|"))};
    for (const auto& row : summary.Rows) {
      lines.push_back(fmt::format("{}: {}", row.Caption, fmt::join(row.Values, "|")));
    }
    return lines;
  }

  Korva korva;

 private:
  TempFolder folder_;
};

using Lines = std::vector<std::string>;

// What page 1 of a run says behind a label, or the laminated and the traditional value of a comparison.
std::string OnPage(const Korva& korva, const std::string& label, int nth = 0) {
  const std::string& page = korva.OutBuf[1];
  std::size_t at = page.find(label + "..");
  for (; nth > 0; --nth) {
    at = page.find(label + "..", at + 1);
  }
  const std::string line = page.substr(at, page.find("\r\n", at) - at);
  return line.substr(line.find_first_not_of('.', line.find("..")));
}

TEST(LastFactors, NamesTheModelThatRanAndBothOfAComparison) {
  Factors factors;
  Project project = TwoSideGobs();
  EXPECT_TRUE(LastFactors(factors.korva).Rows.empty()) << "nothing has run";
  const Lines traditional = factors.After(project);
  ASSERT_EQ(traditional.size(), 3U);
  EXPECT_EQ(traditional[0], "Mining zone|First barrier|Second barrier");
  EXPECT_TRUE(traditional[1].starts_with("Development (KORVA): ")) << traditional[1];
  EXPECT_TRUE(traditional[2].starts_with("Retreat (KORVA): "));

  project.CalcMode = kLaminatedModel;
  const Lines laminated = factors.After(project);
  ASSERT_EQ(laminated.size(), 3U);
  EXPECT_TRUE(laminated[1].starts_with("Development (KORVA-STROND): ")) << laminated[1];
  EXPECT_TRUE(laminated[2].starts_with("Retreat (KORVA-STROND): "));
  EXPECT_NE(laminated[2].substr(laminated[2].find(':')), traditional[2].substr(traditional[2].find(':')));

  project.CalcMode = kComparedModels;
  EXPECT_EQ(factors.After(project),
            (Lines{traditional[0], traditional[1], traditional[2], laminated[1], laminated[2]}));
  factors.korva.Stored.ProjectInput.CalcMode = kTraditionalModel;
  EXPECT_TRUE(LastFactors(factors.korva).OutOfDate);
  EXPECT_EQ(LastFactors(factors.korva).Rows.size(), 4U) << "what ran, not what is chosen now";
}

TEST(LastFactors, AreThoseOfThePageBarriersBesideTheZone) {
  Factors factors;
  const Lines lines = factors.After(TwoSideGobs());
  const auto value = [&](const std::string& label, int nth = 0) {
    const std::string shown = OnPage(factors.korva, label, nth);
    return shown.substr(shown.find_first_not_of(' '));
  };
  for (int stage = 0; stage < 2; ++stage) {
    EXPECT_EQ(lines.at(static_cast<std::size_t>(stage) + 1),
              fmt::format("{0} (KORVA): {1}|{2}|{3}", stage == 0 ? "Development" : "Retreat",
                          value(stage == 0 ? "Development (KORVA)" : "Retreat (KORVA)"),
                          value("FIRST SIDE GOB BARRIER", stage), value("SECOND SIDE GOB BARRIER", stage)));
  }
}

TEST(LastFactors, ShowNothingThatWasNotComputed) {
  Factors factors;
  const Lines development = factors.After(DevelopmentPanel());
  ASSERT_EQ(development.size(), 2U) << "no retreat, no barriers";
  EXPECT_EQ(development[0], "Mining zone");
  EXPECT_EQ(development[1].find('|'), std::string::npos);
  Project project = TwoSideGobs();
  project.BarrierSecondGob = 0;
  for (const OverburdenModel model : {kTraditionalModel, kLaminatedModel}) {
    project.CalcMode = model;
    const Lines lines = factors.After(project);
    EXPECT_TRUE(lines.at(1).ends_with("|\u2013")) << lines[1];
    EXPECT_TRUE(lines.at(2).ends_with("|\u2013")) << lines[2];
  }
}

}  // namespace
}  // namespace korva
