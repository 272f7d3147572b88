#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "files/PlatformFile.h"
#include "strond/KORVAStrond2D.h"
#include "support/ExpectError.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

const std::string kResult =
    "heading\r\n0,0,0,0,0,0,0,0,0\r\n2.5,1.5\r\n4,3,0,0\r\n4,2,0,0\r\n7,7,7,7,7,7,7,7,7\r\n1,2,3,4,0,0,0,0\r\n"
    "5,6,7,8,0,0,0,0\r\n";

struct Bench {
  TempFolder Folder;
  StrondPlace Place{SolverFolder::kUserTemporary, "", Folder / "", "", ""};
  std::string Exchange = Folder / "panel/panel.KVSD";
  std::string Result = Folder / "panel_KVSD.CSV";

  StrondRun Run(const std::function<int(const std::string&)>& solver) const {
    return RunStrond2D(test::TwoSideGobs(), kEnglish, "/mine/panel.KVL", Place, solver);
  }
};

TEST(RunStrond2D, WritesTheLineCallsTheLibraryAndReadsWhatItLeft) {
  const Bench bench;
  const StrondRun run = bench.Run([&](const std::string& path) {
    EXPECT_TRUE(fs::equivalent(path, bench.Exchange));
    EXPECT_EQ(TempFolder::Bytes(path), StrondLine(test::TwoSideGobs(), kEnglish));
    (void)bench.Folder.Put("panel_KVSD.CSV", kResult);
    return 7;  // what it gives back does not count beside a result
  });
  EXPECT_EQ(run.Results.StrondSF[1], 1.5);
  EXPECT_EQ(run.Results.StrondBarrierData[0][3], 4);
  EXPECT_EQ(run.StrondResultFile, bench.Result);
  EXPECT_EQ(run.StrondOutFile, bench.Folder / "panel/panel.OUT");
}

TEST(RunStrond2D, AnEarlierResultIsNeverTakenForThisRuns) {
  const Bench bench;
  (void)bench.Folder.Put("panel_KVSD.CSV", kResult);
  const std::string detail =
      ExpectError(ErrorNumber::kInvalidCall, [&] { bench.Run([](const std::string&) { return 119; }); });
  EXPECT_NE(detail.find(bench.Result), std::string::npos) << detail;
  EXPECT_NE(detail.find("extent of the active gob"), std::string::npos) << detail;
  EXPECT_FALSE(StateOfFile(bench.Result).exists);
  EXPECT_EQ(TempFolder::Bytes(bench.Result + ".old"), kResult);
}

TEST(RunStrond2D, ARefusalIsNotOfferedAgain) {
  const Bench bench;
  for (const auto& [status, error] : {std::pair{3, ErrorNumber::kInvalidCall},
                                      {4, ErrorNumber::kInvalidCall},
                                      {107, ErrorNumber::kInvalidCall},
                                      {-5, ErrorNumber::kInvalidCall},
                                      {5, ErrorNumber::kDeviceIo},  // a disk may be free the next time
                                      {6, ErrorNumber::kOutOfMemory},
                                      {1, ErrorNumber::kFileNotFound},
                                      {2, ErrorNumber::kFileNotFound}}) {
    ExpectError(error, [&, value = status] { bench.Run([value](const std::string&) { return value; }); });
  }
}

TEST(RunStrond2D, AShortResultNamesFileAndLine) {
  const Bench bench;
  const std::string detail = ExpectError(ErrorNumber::kInputPastEnd, [&] {
    bench.Run([&](const std::string&) {
      (void)bench.Folder.Put("panel_KVSD.CSV", kResult.substr(0, 40));
      return 0;
    });
  });
  EXPECT_NE(detail.find("panel_KVSD.CSV"), std::string::npos) << detail;
  EXPECT_NE(detail.find("line"), std::string::npos) << detail;
}

TEST(RunStrond2D, TwoRunsNeverShareAnExchangeFile) {
  const Bench bench;
  const auto nothing = [](const std::string&) { return 0; };
  bench.Run([&](const std::string&) {
    const std::string detail = ExpectError(ErrorNumber::kFileAlreadyOpen, [&] { bench.Run(nothing); });
    EXPECT_NE(detail.find("panel.KVSD"), std::string::npos) << detail;
    (void)bench.Folder.Put("panel_KVSD.CSV", kResult);
    return 0;
  });
  ExpectError(ErrorNumber::kFileNotFound, [&] { bench.Run(nothing); });
}

TEST(RunStrond2D, AFolderThatCannotBeMadeEndsTheRunBeforeTheLibrary) {
  const Bench bench;
  (void)bench.Folder.Put("panel", "a file where the folder belongs");
  EXPECT_THROW(bench.Run([](const std::string&) -> int {
    ADD_FAILURE() << "the library was called";
    return 0;
  }),
               RuntimeError);
}

TEST(SolverLibrary, IsFoundByItsName) {
  const Bench bench;
  const StrondRun run = RunStrond2D(test::TwoSideGobs(), kEnglish, "/mine/panel.KVL", bench.Place);
  EXPECT_GT(run.Results.StrondSF[0], run.Results.StrondSF[1]);
  EXPECT_GT(run.Results.StrondSF[1], 0.5);
  // A project of the documents' temporary folder's own name, at the choice of that folder.
  const std::string docs = bench.Folder / "MyFolvane/Temp/";
  fs::create_directories(docs);
  const StrondPlace place{SolverFolder::kDocuments, "", "", "", docs};
  EXPECT_EQ(RunStrond2D(test::TwoSideGobs(), kEnglish, "Temp.KVL", place).Results.StrondSF,
            run.Results.StrondSF);
}

TEST(SolverLibrary, AMissingOneIsToldByItsName) {
  const std::string missing =
      ExpectError(ErrorNumber::kFileNotFound, [] { CallSolverLibrary("libkorva-nowhere.so", "x"); });
  EXPECT_NE(missing.find("libkorva-nowhere.so"), std::string::npos) << missing;
  const std::string foreign =
      ExpectError(ErrorNumber::kFileNotFound, [] { CallSolverLibrary("libm.so.6", "x"); });
  EXPECT_NE(foreign.find("KORVA_Run_STROND"), std::string::npos) << foreign;
  EXPECT_EQ(SolverStatusText(0), "");
  EXPECT_NE(SolverStatusText(111).find("distance #3"), std::string::npos);
  EXPECT_NE(SolverStatusText(3), SolverStatusText(4));
  EXPECT_NE(SolverStatusText(-5).find("-5"), std::string::npos);
}

}  // namespace
}  // namespace korva
