// The command `korva plan` as a black box, and the drawing lists of the examples.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "files/ProjectFile.h"
#include "support/Panels.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

class PlanCommand : public testing::Test {
 protected:
  ProgramResult Call(std::vector<std::string> arguments, const std::string& folder = {}) const {
    arguments.insert(arguments.begin(), "plan");
    return RunProgram({KORVA_PROGRAM,
                       std::move(arguments),
                       folder.empty() ? folder_ / "" : folder,
                       {{"SOURCE_DATE_EPOCH", "1676764800"}},
                       {}});
  }

  void Put(const std::string& name, const Project& project) {
    folder_.Put(name, ComposeProject(test::Stored(project)));
  }

  static bool Says(const json& plan, const std::string& words) {
    for (const json& text : plan["texts"]) {
      if (text["text"].get<std::string>().find(words) != std::string::npos) {
        return true;
      }
    }
    return false;
  }

  TempFolder folder_;
};

// Where two lists part, or nothing: coordinates may differ in what no printed plan shows.
std::string Difference(const json& made, const json& golden, const std::string& at) {
  constexpr double kShown = 0.005;
  if (made.is_number() && golden.is_number()) {
    return std::abs(made.get<double>() - golden.get<double>()) < kShown ? "" : at;
  }
  if (made.type() != golden.type() || made.size() != golden.size()) {
    return at;
  }
  if (!made.is_structured()) {
    return made == golden ? "" : at;
  }
  const json a = made.flatten();
  const json b = golden.flatten();
  for (auto item = a.begin(), other = b.begin(); item != a.end() && other != b.end(); ++item, ++other) {
    std::string fault =
        item.key() != other.key() ? item.key() : Difference(item.value(), other.value(), item.key());
    if (!fault.empty()) {
      return fault;
    }
  }
  return a.size() == b.size() ? "" : at;
}

// scripts/renew-goldens rewrites what they are compared with.
TEST_F(PlanCommand, DrawsTheExamples) {
  for (const auto& entry : fs::directory_iterator(KORVA_EXAMPLES)) {
    if (entry.path().extension() != ".KVL") {
      continue;
    }
    const std::string stem = Utf8Of(entry.path().stem());
    const ProgramResult result = Call({stem + ".KVL", "--json"}, KORVA_EXAMPLES);
    std::ifstream file(KORVA_GOLDEN "/plan/" + stem + ".json");
    ASSERT_TRUE(file) << stem;
    EXPECT_EQ(Difference(json::parse(result.Out), json::parse(file), "(all)"), "") << stem;
  }
}

TEST_F(PlanCommand, WritesPictureFiles) {
  Put("two.KVL", test::TwoSideGobs());
  EXPECT_EQ(Call({"two.KVL"}).Out.find("<?xml"), 0U) << "SVG, if nothing else is asked for";
  for (const auto& [name, start] : {std::pair{"a.svg", "<?xml"}, {"a.PDF", "%PDF"}, {"a.png", "\x89PNG"}}) {
    const ProgramResult result = Call({"two.KVL", "-o", name});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(TempFolder::Bytes(folder_ / name).find(start), 0U) << name;
  }
  EXPECT_EQ(Call({"two.KVL", "-o", "a.txt"}).Status, 2);
  EXPECT_EQ(Call({"two.KVL", "--plot", "6"}).Status, 2);
  EXPECT_EQ(Call({"two.KVL", "-o", "none/a.svg"}).Status, 3);
}

TEST_F(PlanCommand, ShowsWhatTheModelOfTheProjectComputes) {
  Project p = test::TwoSideGobs();
  Put("two.KVL", p);
  EXPECT_TRUE(Says(json::parse(Call({"two.KVL", "--plot", "3", "--json"}).Out), "(tons)"));
  EXPECT_TRUE(Says(json::parse(Call({"two.KVL", "--plot", "5", "--json"}).Out), "Total (psi)"));
  for (const char* option : {"PlotEntryDims=0", "PlotGobExtLoose=0"}) {
    const ProgramResult changed = Call({"two.KVL", "--set", option});
    EXPECT_EQ(changed.Status, 0) << changed.Err;
    EXPECT_NE(changed.Out, Call({"two.KVL"}).Out) << option;
  }
  EXPECT_TRUE(Says(json::parse(Call({"two.KVL", "--plot", "2", "--model", "laminated", "--json"}).Out),
                   "KORVA-STROND: Unit Pillar Strength"));
  p.CalcMode = kLaminatedModel;
  Put("laminated.KVL", p);
  const ProgramResult strength = Call({"laminated.KVL", "--plot", "2", "--json"});
  EXPECT_TRUE(Says(json::parse(strength.Out), "KORVA-STROND: Unit Pillar Strength (psi)")) << strength.Err;
  const ProgramResult capacity = Call({"laminated.KVL", "--plot", "3", "--json"});
  EXPECT_EQ(capacity.Status, 1);
  EXPECT_NE(json::parse(capacity.Out)["refused"].get<std::string>().find("neither load bearing capacity"),
            std::string::npos);
}

TEST_F(PlanCommand, TellsWhosePlanItIs) {
  fs::create_directory(folder_ / "mine");
  Project p = test::TwoSideGobs();
  p.CalcMode = kComparedModels;
  Put("mine/two.KVL", p);
  const json plan = json::parse(Call({"mine/two.KVL", "--json"}).Out);
  for (const char* words :
       {"Project: two.KVL", "Title: Sample panel", "Model: compared", "Date: 2023-02-19"}) {
    EXPECT_TRUE(Says(plan, words)) << words;
  }
  EXPECT_EQ(plan["activeMiningZone"].size(), 24U) << "along the edge of the gob and back";
  const std::string picture = Call({"mine/two.KVL"}).Out;
  EXPECT_NE(picture.find("stroke-dasharray"), std::string::npos);
  EXPECT_EQ(picture, Call({"mine/two.KVL"}).Out);
}

TEST_F(PlanCommand, RefusesWhatTheCheckRefuses) {
  Project p = test::DevelopmentPanel();
  p.XcutCenters[2] = 0;
  Put("refused.KVL", p);
  const ProgramResult result = Call({"refused.KVL"});
  EXPECT_EQ(result.Status, 1);
  EXPECT_NE(result.Err.find("Invalid center-to-center distance #2"), std::string::npos);
  p = test::DevelopmentPanel();
  p.XcutCenters[2] = 1e200;
  Put("huge.KVL", p);
  EXPECT_EQ(Call({"huge.KVL"}).Status, 3);
}

}  // namespace
}  // namespace korva
