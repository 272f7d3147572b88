#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "commands/Batch.h"
#include "files/ProjectFile.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

class CountedProgress final : public ProgressPort {
 public:
  void Advance(std::size_t done, std::size_t total) override {
    EXPECT_EQ(done, ++count_);
    Total = total;
  }
  std::size_t Total = 0;

 private:
  std::size_t count_ = 0;
};

std::string FileOf(const Project& project) {
  return ComposeProject(test::Stored(project));
}

TEST(FindProjectFiles, WalksFoldersInNameOrder) {
  const TempFolder folder;
  std::filesystem::create_directories(folder / "sub/deep.KVL");  // a folder, whatever its name
  const std::string b = folder.Put("b.KVL", "");
  const std::string a = folder.Put("sub/deep.KVL/a.kvl", "");
  const std::string mixed = folder.Put("sub/c.KvL", "");
  const std::string other = folder.Put("sub/d.txt", "");
  folder.Put("KVL", "");
  const std::string root = folder / "";
  const std::string slash = root.substr(0, root.size() - 1);
  EXPECT_EQ(FindProjectFiles({slash}), (std::vector<std::string>{b, mixed, a}));
  // A file is taken whatever its name, and none twice.
  EXPECT_EQ(FindProjectFiles({other, b, slash, b, "missing"}),
            (std::vector<std::string>{b, mixed, other, a, "missing"}));
}

TEST(RunBatch, OneRowEachInTheirOrder) {
  const TempFolder folder;
  Project refused = test::DevelopmentPanel();
  refused.EntryHeight = 0;
  Project faulty = test::DevelopmentPanel();
  faulty.XcutAngle = 0;
  Project slender = test::DevelopmentPanel();
  slender.XcutCenters[2] = 20;
  const std::string torn = FileOf(test::DevelopmentPanel());
  std::vector<std::string> files;
  for (int n = 0; n < 8; ++n) {
    const std::string name = std::to_string(n);
    files.push_back(folder.Put(name + "a", FileOf(test::TwoSideGobs())));
    files.push_back(folder.Put(name + "b", FileOf(refused)));
    files.push_back(folder.Put(name + "c", FileOf(faulty)));
    files.push_back(folder / (name + "d"));
    files.push_back(folder.Put(name + "e", "nothing of ours\n"));
    files.push_back(folder.Put(name + "f", torn.substr(0, torn.size() / 2)));
    files.push_back(folder.Put(name + "g", FileOf(slender)));
  }
  CountedProgress progress;
  const std::vector<BatchRow> rows = RunBatch(files, Settings{}, std::nullopt, 4, progress);
  ASSERT_EQ(rows.size(), files.size());
  EXPECT_EQ(progress.Total, files.size());
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const BatchRow& row = rows[at];
    EXPECT_EQ(row.File, files[at]);
    switch (row.File.back()) {
      case 'a':
        EXPECT_FALSE(row.Refusal || row.Error || row.ForeignFile);
        EXPECT_NEAR(row.SFKorva[kRetreat], 0.608567498752849, 1e-12);
        EXPECT_EQ(row.RoundedSF[kRetreat], 0.61F);
        EXPECT_NEAR(row.RemnantSF[4], 0.26173716917174017, 1e-12);
        EXPECT_EQ(row.RuleFlags, (std::vector<int>{1, 3, 8, 13}));
        EXPECT_EQ(row.Title, "Sample panel");
        break;
      case 'b':
        EXPECT_EQ(row.Refusal, "Invalid entry height");
        break;
      case 'c':
        ASSERT_TRUE(row.Error);
        EXPECT_EQ(row.Error->Number(), ErrorNumber::kDivisionByZero);
        break;
      case 'd':
        ASSERT_TRUE(row.Error);
        EXPECT_EQ(row.Error->Number(), ErrorNumber::kFileNotFound);
        break;
      case 'e':
        EXPECT_TRUE(row.ForeignFile);
        break;
      case 'f':
        ASSERT_TRUE(row.Error);
        EXPECT_EQ(row.Error->Number(), ErrorNumber::kInputPastEnd);
        break;
      case 'g':
        EXPECT_FALSE(row.Refusal || row.Error || row.ForeignFile);
        EXPECT_EQ(row.Notices.size(), 1U);
        break;
      default:
        FAIL();
    }
  }
}

TEST(RunBatch, SettingsAndModelOfTheCall) {
  const TempFolder folder;
  Project laminated = test::TwoSideGobs();
  laminated.CalcMode = kLaminatedModel;
  const std::vector<std::string> files = {folder.Put("a.KVL", FileOf(laminated))};
  Settings settings;
  settings.Options.RoundKORVASF = 1;
  CountedProgress one;
  EXPECT_TRUE(RunBatch(files, settings, std::nullopt, 1, one)[0].Error);
  CountedProgress two;
  const BatchRow row = RunBatch(files, settings, kTraditionalModel, 9, two)[0];
  EXPECT_EQ(row.CalcMode, kTraditionalModel);
  EXPECT_EQ(row.RoundedSF[kRetreat], 0.608567498752849F);
}

}  // namespace
}  // namespace korva
