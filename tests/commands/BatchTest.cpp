#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "commands/Batch.h"
#include "core/FileNames.h"
#include "files/ProjectFile.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

class CountedProgress final : public ProgressPort {
 public:
  void Advance(std::size_t done, std::size_t total) override {
    EXPECT_EQ(done, ++Count);
    Total = total;
  }
  std::size_t Count = 0;
  std::size_t Total = 0;
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
  const std::string slash = FolderOf(b);
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
  Project laminated = test::TwoSideGobs();
  laminated.CalcMode = kLaminatedModel;  // which the call replaces
  Project slender = test::DevelopmentPanel();
  slender.XcutCenters[2] = 20;
  const std::string torn = FileOf(test::DevelopmentPanel());
  std::vector<std::string> files;
  for (const std::string name : {"1", "2", "3", "4", "5"}) {
    files.push_back(folder.Put(name + "a", FileOf(laminated)));
    files.push_back(folder.Put(name + "b", FileOf(refused)));
    files.push_back(folder.Put(name + "c", FileOf(faulty)));
    files.push_back(folder / (name + "d"));
    files.push_back(folder.Put(name + "e", "nothing of ours\n"));
    files.push_back(folder.Put(name + "f", torn.substr(0, torn.size() / 2)));
    files.push_back(folder.Put(name + "g", FileOf(slender)));
  }
  CountedProgress progress;
  Settings settings;
  settings.Options.RoundKORVASF = FactorRounding{1};
  const std::vector<BatchRow> rows = RunBatch(files, settings, kTraditionalModel, 4, progress);
  ASSERT_EQ(rows.size(), files.size());
  EXPECT_EQ(progress.Total, files.size());
  const std::map<char, ErrorNumber> errors = {{'c', ErrorNumber::kDivisionByZero},
                                              {'d', ErrorNumber::kFileNotFound},
                                              {'f', ErrorNumber::kInputPastEnd}};
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const BatchRow& row = rows[at];
    EXPECT_EQ(row.File, files[at]);
    const char kind = row.File.back();
    EXPECT_EQ(row.Refusal.value_or(""), kind == 'b' ? "Invalid entry height" : "");
    EXPECT_EQ(row.Failure, kind == 'e' ? "Invalid file format" : "");
    EXPECT_EQ(row.Notices.size(), kind == 'f' || kind == 'g' ? 1U : 0U);
    ASSERT_EQ(row.Error.has_value(), errors.contains(kind)) << row.File;
    EXPECT_TRUE(!row.Error || row.Error->Number() == errors.at(kind)) << row.File;
    if (kind == 'a') {
      EXPECT_NEAR(row.SFKorva[kRetreat], 0.608567498752849, 1e-12);
      EXPECT_EQ(row.ShownSF[kRetreat], "0.61");
      EXPECT_EQ(row.RuleFlags, (std::vector<int>{1, 3, 8, 13}));
    }
  }
}

}  // namespace
}  // namespace korva
