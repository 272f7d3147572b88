#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <regex>

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

// Development and retreat with their barriers, of which page 1 shows the zones first.
Lines LinesOfPage1(const Korva& korva, const std::string& model) {
  const std::regex factor(R"(\.\. +([0-9.]+))");
  const std::string& page = korva.OutBuf[1];
  Lines v;
  for (std::sregex_iterator at(page.begin(), page.end(), factor), end; at != end; ++at) {
    v.push_back(at->str(1));
  }
  return {fmt::format("Development ({}): {}|{}|{}", model, v.at(0), v.at(2), v.at(3)),
          fmt::format("Retreat ({}): {}|{}|{}", model, v.at(1), v.at(4), v.at(5))};
}

TEST(LastFactors, NamesTheModelThatRanAndBothOfAComparison) {
  Factors factors;
  Project project = TwoSideGobs();
  EXPECT_TRUE(LastFactors(factors.korva).Rows.empty()) << "nothing has run";
  const Lines traditional = factors.After(project);
  const Lines page = LinesOfPage1(factors.korva, "KORVA");
  EXPECT_EQ(traditional, (Lines{"Mining zone|First barrier|Second barrier", page[0], page[1]}));

  project.CalcMode = kLaminatedModel;
  const Lines laminated = factors.After(project);
  const Lines laminatedPage = LinesOfPage1(factors.korva, "KORVA-STROND");
  EXPECT_EQ(laminated, (Lines{traditional[0], laminatedPage[0], laminatedPage[1]}));

  project.CalcMode = kComparedModels;
  EXPECT_EQ(factors.After(project),
            (Lines{traditional[0], traditional[1], traditional[2], laminated[1], laminated[2]}));
  factors.korva.Stored.ProjectInput.CalcMode = kTraditionalModel;
  EXPECT_TRUE(LastFactors(factors.korva).OutOfDate);
  EXPECT_EQ(LastFactors(factors.korva).Rows.size(), 4U) << "what ran, not what is chosen now";
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
