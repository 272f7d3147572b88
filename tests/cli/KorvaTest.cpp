// The command as a black box: what it prints, where, and its exit status.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "core/FileNames.h"
#include "files/ProjectFile.h"
#include "support/Panels.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"
#include "support/VoskPanel.h"

namespace korva {
namespace {

using nlohmann::json;

std::string FileOf(const Project& project) {
  return ComposeProject(test::Stored(project));
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// With one blank for each run of them.
std::string Squeezed(std::string text) {
  const auto both = [](char a, char b) { return a == ' ' && b == ' '; };
  text.erase(std::unique(text.begin(), text.end(), both), text.end());
  return text;
}

// A folder with one project of each kind, in which the calls run.
class KorvaCommand : public testing::Test {
 protected:
  KorvaCommand() {
    std::filesystem::create_directory(folder_ / "tmp");
    folder_.Put("two.KVL", FileOf(test::TwoSideGobs()));
    folder_.Put("dev.KVL", FileOf(test::DevelopmentPanel()));
    Project p = test::TwoSideGobs();
    p.RowA = 1;
    folder_.Put("refused.KVL", FileOf(p));
    p = test::DevelopmentPanel();
    p.XcutAngle = 0;
    folder_.Put("faulty.KVL", FileOf(p));
    p = test::DevelopmentPanel();
    p.CalcMode = kLaminatedModel;
    folder_.Put("laminated.KVL", FileOf(p));
    folder_.Put("rest.KVL", FileOf(test::DevelopmentPanel()) + "a remark\r\n");
  }

  ProgramResult Call(std::vector<std::string> arguments,
                     std::vector<std::pair<std::string, std::string>> environment = {}) const {
    environment.emplace(environment.begin(), "TMPDIR", folder_ / "tmp");
    return RunProgram({KORVA_PROGRAM, std::move(arguments), folder_ / "", std::move(environment), {}});
  }

  // A call that fails with `status`, prints nothing and says `what`.
  void ExpectFailure(const std::vector<std::string>& arguments, int status, const std::string& what) const {
    const ProgramResult result = Call(arguments);
    EXPECT_EQ(result.Status, status) << arguments.front();
    EXPECT_EQ(result.Out, "");
    EXPECT_TRUE(Holds(result.Err, what)) << result.Err << "\nlacks " << what;
    EXPECT_TRUE(result.Err.starts_with("korva: ")) << result.Err;
  }

  const TempFolder folder_;
};

TEST_F(KorvaCommand, UsageErrors) {
  EXPECT_EQ(Call({}).Status, 2);
  EXPECT_EQ(Call({"--version"}).Out, "korva 1.1.05\n");
  EXPECT_TRUE(Holds(Call({"batch", "--help"}).Out, "Example:\n  korva batch"));
  for (const auto& [arguments, what] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{"reprot", "two.KVL"}, "did you mean \"korva report\"?"},
           {{"report"}, "see \"korva report --help\""},
           {{"report", "two.KVL", "--page", "6"}, "--page"},
           {{"batch", ".", "--csv", "--json"}, "--csv"},
           {{"batch", ".", "--jobs", "0"}, "--jobs"},
           {{"calc", "two.KVL", "--set", "NoSuchKey=1"}, "NoSuchKey"},
           {{"calc", "two.KVL", "--set", "OutputStrUnits"}, "KEY=VALUE"},
       }) {
    ExpectFailure(arguments, 2, what);
  }
}

TEST_F(KorvaCommand, ReportPrintsPagesAndWarnings) {
  const ProgramResult result = Call({"report", "two.KVL"});
  EXPECT_EQ(result.Status, 0);
  EXPECT_EQ(std::count(result.Out.begin(), result.Out.end(), '\f'), 5);
  EXPECT_FALSE(Holds(result.Out + result.Err, "\r"));
  EXPECT_TRUE(Holds(result.Err, "KORVA Warnings\nB. Analysis of the KORVA case history"));

  const std::string pages = Call({"report", "two.KVL", "--page", "3", "--page", "1"}).Out;
  EXPECT_TRUE(Holds(pages, "\n\f\n[KORVA STABILITY FACTORS]\n"));
  EXPECT_FALSE(Holds(pages, "[BARRIER PILLAR PARAMETERS]"));

  const ProgramResult toFile = Call({"report", "dev.KVL", "-o", "out.txt"});
  EXPECT_EQ(toFile.Out + toFile.Err, "");
  EXPECT_EQ(TempFolder::Bytes(folder_ / "out.txt"), Call({"report", "dev.KVL"}).Out);
}

TEST_F(KorvaCommand, ReportAsJson) {
  const json report = json::parse(Call({"report", "two.KVL", "--json"}).Out);
  EXPECT_EQ(report.size(), 4U);
  EXPECT_TRUE(report["refused"].is_null());
  ASSERT_EQ(report["pages"].size(), 6U);
  EXPECT_TRUE(report["warnings"].get<std::string>().starts_with("B. Analysis"));
  std::string page = report["pages"][3];
  std::erase(page, '\r');
  EXPECT_EQ(page, Call({"report", "two.KVL", "--page", "3"}).Out);

  const std::string reason = "Cannot take slab cut from first side barrier when Row A pillars are left";
  const json refusal = {
      {"file", "refused.KVL"}, {"refused", reason}, {"pages", json::array()}, {"warnings", ""}};
  for (const char* command : {"report", "calc"}) {
    ExpectFailure({command, "refused.KVL"}, 1, reason);
    ExpectFailure({command, "faulty.KVL"}, 3, "Division by zero (11)");
    const ProgramResult refused = Call({command, "refused.KVL", "--json"});
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(json::parse(refused.Out), refusal);
    const ProgramResult faulty = Call({command, "faulty.KVL", "--json"});
    EXPECT_EQ(faulty.Status, 3);
    EXPECT_EQ(json::parse(faulty.Out)["error"]["number"], 11);
    EXPECT_TRUE(Holds(json::parse(faulty.Out)["error"]["text"], "PillarLength"));
  }
}

TEST_F(KorvaCommand, CalcGivesEveryNumber) {
  const json calc = json::parse(Call({"calc", "two.KVL", "--json"}).Out);
  EXPECT_NEAR(calc["SFKorva"]["2"], 0.608567498752849, 1e-12);
  EXPECT_EQ(calc["Fpa"], 0.6899999976158142);  // 32 bits, widened
  EXPECT_EQ(calc["form"],
            json({{"Calc_AMZ", 150}, {"Calc_Arch", 0.6899999976158142}, {"Calc_Ext_Ratio", "50.0"}}));

  const std::string text = Squeezed(Call({"calc", "two.KVL"}).Out);
  EXPECT_TRUE(Holds(text, "\nAMZLoad[2][2] 2837786544.9035")) << text;
}

TEST_F(KorvaCommand, OptionsAndModels) {
  // What a start-up forces stands behind the settings file, and in front of the call's own changes.
  folder_.Put("my.ini", "[KORVAOptions]\nOutputStrUnits=1\nRoundKORVASF=2\n");
  const std::string retreat = "Retreat (KORVA)..............................  0.";
  for (const auto& [options, line] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{"--set", "outputstrunits=1", "--set", "OutputStrGradUnits = 0"}, "(psf)         (lbs)"},
           {{}, retreat + "61"},
           {{"--set", "RoundKORVASF=2"}, retreat + "60"},
           {{"--settings", "my.ini"}, retreat + "61"},
           {{"--settings", "my.ini", "--set", "OutputStrUnits=0"}, "Units:  (ft) (psi) (lbs)"},
       }) {
    std::vector<std::string> call = options;
    call.insert(call.end(), {"report", "two.KVL"});
    EXPECT_TRUE(Holds(Call(call).Out, line + "\n")) << line;
  }
  const std::string none = "my.ini: no options are set in it";
  EXPECT_FALSE(Holds(Call({"--settings", "my.ini", "report", "two.KVL"}).Err, none));
  folder_.Put("my.ini", "[Graph]\n");
  EXPECT_TRUE(Holds(Call({"--settings", "my.ini", "report", "two.KVL"}).Err, none));
  // An option behind the command counts as well.
  EXPECT_FALSE(Holds(Call({"report", "two.KVL", "--set", "PrintModuleHeader=0"}).Out, "module build"));
  ExpectFailure({"--settings", "gone.ini", "report", "two.KVL"}, 3, "gone.ini");
}

TEST_F(KorvaCommand, ImportsAVoskProject) {
  folder_.Put("a.VSK", test::VoskPanel());
  const ProgramResult imported = Call({"import", "vosk", "a.VSK", "b.KVL"});
  EXPECT_EQ(imported.Status, 0);
  EXPECT_TRUE(Holds(imported.Err, "warning: a.VSK, line 43"));
  EXPECT_TRUE(TempFolder::Bytes(folder_ / "b.KVL").starts_with("KORVA_603\r\n 1 \r\nNorth, \"four\"\r\n"));
  ExpectFailure({"import", "vosk", "a.VSK", "a.VSK"}, 1, "a VOSK project itself");
  ExpectFailure({"import", "vosk", "two.KVL", "c.KVL"}, 3, "Invalid file format");
  ExpectFailure({"import", "vosk", "gone.VSK", "c.KVL"}, 3, "File not found (53)");
  ExpectFailure({"import", "vosk"}, 2, "see \"korva import --help\"");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "c.KVL"));
}

TEST_F(KorvaCommand, ImportsCases) {
  const std::string book = KORVA_EXAMPLES "/cases.xlsx";
  const ProgramResult all = Call({"import", "cases", book, "out"});
  EXPECT_EQ(all.Status, 0) << all.Err;
  const json rows = json::parse(Call({"import", "cases", book, "out", "--all", "--json"}).Out)["rows"];
  ASSERT_GE(rows.size(), 6U);
  EXPECT_EQ(rows[0]["row"], 3);
  for (const json& row : rows) {
    EXPECT_TRUE(Holds(all.Out, row["file"])) << row;
    EXPECT_EQ(Call({"report", row["file"]}).Status, 0) << row;
  }
  EXPECT_EQ(Call({"import", "cases", book, "one", "--row", "4"}).Out,
            "4       one/" + FileBaseName(rows[1]["file"], false) + "\n");

  // A row with a fault leaves the others; the result tells both.
  const std::string faulty = KORVA_WORKBOOKS "/cases.xls";
  const ProgramResult some = Call({"import", "cases", faulty, "some", "--json"});
  EXPECT_EQ(some.Status, 3);
  EXPECT_TRUE(Holds(some.Err, "row 5, column 20 (T): \"deep\" is not a number")) << some.Err;
  const json done = json::parse(some.Out)["rows"];
  ASSERT_GE(done.size(), 3U);
  EXPECT_EQ(done[0]["file"], "some/001-Invented _ Mine.KVL");
  EXPECT_EQ(done[2]["error"]["number"], 13);

  ExpectFailure({"import", "cases", book, "one", "--row", "2"}, 2, "--row");
  ExpectFailure({"import", "cases", book, "one", "--row", "500"}, 3,
                "row 500 of sheet \"Cases\" holds no case");
  ExpectFailure({"import", "cases", book, "dev.KVL/in"}, 3, "dev.KVL/in");
  ExpectFailure({"import", "cases", book, "dev.KVL", "--row", "3"}, 3, "dev.KVL");
  ExpectFailure({"import", "cases", "dev.KVL", "one"}, 3, "dev.KVL");
  ExpectFailure({"import", "cases", book, "one", "--all", "--row", "3"}, 2, "excludes");
}

TEST_F(KorvaCommand, ConvertsUnits) {
  EXPECT_EQ(Call({"units", "length", "ft", "1"}).Out,
            "in            12\nft            1\ncm            30.48\nm             0.3048\n");
  const json row = json::parse(Call({"units", "load", "tonsF (short)", "-2,5", "--json"}).Out);
  EXPECT_EQ(row["value"], -2.5);
  EXPECT_EQ(row["row"][0]["text"], "-5000");
  ExpectFailure({"units", "length", "yard", "1"}, 2, "\"in\", \"ft\"");
  for (const char* text : {"many", "1.000,5", "1-2", "1,2,3", "e5", ".", "1e5,5", "12 ft", ""}) {
    ExpectFailure({"units", "stress", "MPa", text}, 2, "expected a number");
  }
  EXPECT_EQ(json::parse(Call({"units", "length", "m", "\t\u22122.5\u00A0", "--json"}).Out)["value"], -2.5);
  for (const char* text : {"-.5", "-,5", "-5e-1"}) {
    EXPECT_EQ(json::parse(Call({"units", "length", "m", text, "--json"}).Out)["value"], -0.5) << text;
  }
  const auto doubtful = Call({"units", "length", "m", "1,200"});
  EXPECT_TRUE(doubtful.Out.starts_with("in            47.24")) << doubtful.Out;
  EXPECT_EQ(doubtful.Err, "korva: 1,200: counts as 1.2\n");
  ExpectFailure({"units", "stress", "MPa", "1e305"}, 3, "Overflow (6)");
}

TEST_F(KorvaCommand, RunsTheModelAskedFor) {
  const auto calc = [this](const std::string& model) {
    return json::parse(Call({"calc", "laminated.KVL", "--json", "--model", model}).Out);
  };
  const json laminated = json::parse(Call({"calc", "laminated.KVL", "--json"}).Out);
  EXPECT_EQ(laminated, calc("laminated"));
  EXPECT_GT(laminated["StrondSF"]["0"].get<double>(), 0.5);
  EXPECT_GT(laminated["StrondPillarStrength"]["0"].get<double>(), 1000);
  const std::string plain = Call({"calc", "laminated.KVL"}).Out;
  EXPECT_TRUE(Holds(plain, "StrondSF[0]") && !Holds(plain, "SFKorva") && !Holds(plain, "Fpa ")) << plain;
  EXPECT_FALSE(laminated.contains("SFKorva") || laminated.contains("Fpa"));
  const json compared = calc("compared");
  const json traditional = calc("traditional");
  EXPECT_EQ(compared["StrondSF"], laminated["StrondSF"]);
  EXPECT_EQ(compared["SFKorva"], traditional["SFKorva"]);
  EXPECT_EQ(compared.size() + 3, traditional.size() + laminated.size()) << "three are of both";
  EXPECT_FALSE(traditional.contains("StrondSF"));

  const ProgramResult report = Call({"report", "laminated.KVL"});
  EXPECT_EQ(report.Status, 0);
  EXPECT_TRUE(Holds(report.Out, "[KORVA-STROND STABILITY FACTORS]"));
  const ProgramResult both = Call({"report", "laminated.KVL", "--model", "compared", "--page", "1"});
  EXPECT_TRUE(Holds(both.Out, "KORVA-STROND   KORVA-TRADITIONAL"));
  EXPECT_TRUE(Holds(both.Err, "without any warnings"));
  const json rows = json::parse(Call({"batch", "laminated.KVL", "--json"}).Out);
  EXPECT_EQ(rows[0]["model"], "laminated");
  EXPECT_EQ(rows[0]["StrondSF"], laminated["StrondSF"]);
  EXPECT_TRUE(std::filesystem::is_empty(folder_ / "tmp")) << "the runs leave nothing behind";
}

TEST_F(KorvaCommand, SweepsAParameter) {
  const json sweep =
      json::parse(Call({"sweep", "two.KVL", "1", "--json", "--min", "100", "--max", "150"}).Out);
  EXPECT_EQ(sweep["CurveCount"], 2);
  EXPECT_EQ(sweep["PointCount"], 17);  // 0.5 / 0.03 + 1
  EXPECT_EQ(sweep["PointCapacity"], 19);
  const json calc = json::parse(Call({"calc", "two.KVL", "--json"}).Out);
  EXPECT_EQ(sweep["Y"][1][0].get<float>(), calc["SFKorva"]["2"].get<float>());
  const ProgramResult csv = Call({"sweep", "two.KVL", "1", "--csv", "--model", "laminated", "--max", "50"});
  EXPECT_EQ(
      csv.Out.find("Depth of Cover (ft),Development (KORVA),Retreat (KORVA),Development (KORVA-STROND)"), 0U);
  EXPECT_EQ(std::count(csv.Out.begin(), csv.Out.end(), '\n'), 2);
  EXPECT_TRUE(Holds(Call({"sweep", "dev.KVL", "4"}).Err, "there is no first barrier"));

  EXPECT_EQ(Call({"sweep", "two.KVL", "0", "-o", "graph.PNG"}).Status, 0);
  EXPECT_EQ(TempFolder::Bytes(folder_ / "graph.PNG").find("\x89PNG"), 0U);
  EXPECT_EQ(Call({"sweep", "two.KVL", "0", "-o", "graph.txt"}).Status, 2);
  EXPECT_EQ(Call({"sweep", "two.KVL", "7"}).Status, 2);
  EXPECT_EQ(Call({"sweep", "two.KVL", "0", "--min", "x"}).Status, 2);
  const ProgramResult crossed = Call({"sweep", "two.KVL", "0", "--min", "90", "--max", "80", "--json"});
  EXPECT_EQ(crossed.Status, 1);
  EXPECT_TRUE(Holds(crossed.Out, "Invalid Range settings. Check Options-> Output Options"));
  EXPECT_EQ(Call({"sweep", "refused.KVL", "1"}).Status, 1);
  EXPECT_TRUE(std::filesystem::is_empty(folder_ / "tmp")) << "the runs leave nothing behind";
}

TEST_F(KorvaCommand, ASweepSaysOfEachPointWhatIsSaidOfASingleRun) {
  const ProgramResult table = Call({"sweep", "two.KVL", "3", "--min", "2"});
  EXPECT_EQ(table.Status, 0);
  const std::string notice =
      "  the pillars have no length: the crosscut spacing leaves nothing beside the entry width\n";
  const std::string second = table.Out.substr(table.Out.find('\n') + 1, 110 + notice.size());
  EXPECT_TRUE(Holds(table.Out.substr(0, table.Out.find('\n')), "Retreat (KORVA)  Notice"));
  EXPECT_TRUE(Holds(second, notice)) << second;
  EXPECT_FALSE(table.Out.ends_with(notice));
  EXPECT_TRUE(Holds(table.Err, "warning: two.KVL: Crosscut Spacing 1.60 to ")) << table.Err;
  EXPECT_TRUE(Holds(table.Err, ": pillars without length\n")) << table.Err;
  const json sweep = json::parse(Call({"sweep", "two.KVL", "3", "--min", "2", "--json"}).Out);
  ASSERT_EQ(sweep["Notices"].size(), sweep["PointCount"]);
  EXPECT_EQ(sweep["Notices"][0].size(), 1U);
  EXPECT_TRUE(sweep["Notices"].back().empty());
  EXPECT_TRUE(Holds(Call({"sweep", "two.KVL", "3", "--min", "2", "--csv"}).Out, ",Notice\n1.6,"));
  EXPECT_FALSE(json::parse(Call({"sweep", "two.KVL", "3", "--json"}).Out).contains("Notices"));

  Project p = test::TwoSideGobs();
  p.LoadingCondition = PanelLoading{2};
  p.ExtentSecondGob = p.BarrierSecondGob = p.SlabcutSecondGob = 0;
  folder_.Put("one.KVL", FileOf(p));
  const ProgramResult one = Call({"sweep", "one.KVL", "6", "--json", "--model", "laminated", "--max", "50"});
  EXPECT_EQ(json::parse(one.Out)["NoFactor"], json({3, 4})) << one.Out;
  EXPECT_TRUE(Holds(one.Err, "there is no second barrier; the laminated factors are 0")) << one.Err;
}

TEST_F(KorvaCommand, PointsBeforeAFailureStay) {
  Project p = test::TwoSideGobs();
  p.XcutSpacing = 50;  // at 20 ft nothing is left beside the entry
  folder_.Put("fails.KVL", FileOf(p));
  const std::vector<std::string> call = {"sweep", "fails.KVL", "3", "--min", "20", "--max", "120"};
  const auto with = [&call](const char* option) {
    std::vector<std::string> all = call;
    all.emplace_back(option);
    return all;
  };
  const ProgramResult table = Call(call);
  EXPECT_EQ(table.Status, 3);
  EXPECT_EQ(std::count(table.Out.begin(), table.Out.end(), '\n'), 7) << table.Out;
  EXPECT_TRUE(Holds(table.Out, "\npartial: 5 of 26 points; Division by zero")) << table.Out;
  EXPECT_TRUE(Holds(table.Err, "Error occurred: Division by zero (11)")) << table.Err;
  EXPECT_TRUE(Holds(table.Err, "partial: 5 of 26 points")) << "also where the result is a picture";
  const ProgramResult asJson = Call(with("--json"));
  EXPECT_EQ(asJson.Status, 3);
  const json result = json::parse(asJson.Out);
  EXPECT_EQ(result["error"]["number"], 11);
  EXPECT_EQ(result["sweep"]["X"].size(), 5U);
  EXPECT_TRUE(Holds(result["sweep"]["Partial"], "5 of 26 points"));
  EXPECT_EQ(Call({"sweep", "fails.KVL", "3", "--min", "20", "--max", "120", "-o", "part.svg"}).Status, 3);
  EXPECT_TRUE(std::filesystem::exists(folder_ / "part.svg"));
}

TEST_F(KorvaCommand, OnlyTheLaminatedModelNeedsATemporaryFolder) {
  const std::string gone = folder_ / "gone";
  EXPECT_EQ(Call({"report", "two.KVL"}, {{"TMPDIR", gone}}).Status, 0);
  EXPECT_EQ(Call({"sweep", "two.KVL", "0"}, {{"TMPDIR", gone}}).Status, 0);
  const ProgramResult laminated = Call({"report", "laminated.KVL"}, {{"TMPDIR", gone}});
  EXPECT_EQ(laminated.Status, 3);
  EXPECT_TRUE(Holds(laminated.Err, "the private folder of the run cannot be made")) << laminated.Err;
}

// Another library of the same interface takes the solver's place by its name.
TEST_F(KorvaCommand, TheSolverLibraryCanBeReplacedAndItsFailuresAreTold) {
  for (const auto& [status, reason] : {std::pair{"-7", "it returned -7"},
                                       {"3", "the stresses did not converge"},
                                       {"4", "the overloaded barriers reached no balance"},
                                       {"6", "it ran out of memory"},
                                       {"7", "it failed with an internal error"}}) {
    const ProgramResult report =
        Call({"report", "laminated.KVL"},
             {{"LD_LIBRARY_PATH", KORVA_REPLACED_SOLVER}, {"KORVA_TEST_STATUS", status}});
    EXPECT_EQ(report.Status, 3);
    EXPECT_EQ(report.Out, "");
    EXPECT_TRUE(Holds(report.Err, "laminated_KVSD.CSV")) << report.Err;
    EXPECT_TRUE(Holds(report.Err, reason)) << report.Err;
  }
}

TEST_F(KorvaCommand, SaveAndConvertRoundTrips) {
  EXPECT_EQ(Call({"save", "two.KVL", "copy.KVL"}).Status, 0);
  EXPECT_EQ(TempFolder::Bytes(folder_ / "copy.KVL"), TempFolder::Bytes(folder_ / "two.KVL"));
  EXPECT_EQ(Call({"convert", "two.KVL", "metric.KVL"}).Status, 0);
  EXPECT_TRUE(Holds(TempFolder::Bytes(folder_ / "metric.KVL"), "\r\n1.83\r\n274.32\r\n90\r\n6.1\r\n"));
  ExpectFailure({"save", "two.KVL", "gone/copy.KVL"}, 3, "Path not found");
}

TEST_F(KorvaCommand, SaveKeepsAFileThatWasNotReadWhole) {
  const std::string before = TempFolder::Bytes(folder_ / "rest.KVL");
  std::filesystem::create_symlink(folder_ / "rest.KVL", folder_ / "link.KVL");
  for (const char* target : {"rest.KVL", "./rest.KVL", "link.KVL"}) {
    ExpectFailure({"save", "rest.KVL", target}, 1, "--force");
  }
  ExpectFailure({"convert", "rest.KVL", "rest.KVL"}, 1, "--force");
  EXPECT_EQ(TempFolder::Bytes(folder_ / "rest.KVL"), before);
  EXPECT_EQ(Call({"save", "--force", "rest.KVL", "rest.KVL"}).Status, 0);
  EXPECT_EQ(TempFolder::Bytes(folder_ / "rest.KVL"), TempFolder::Bytes(folder_ / "dev.KVL"));
}

TEST_F(KorvaCommand, AFileCutBehindItsLastValueMayBeReplaced) {
  const std::string whole = TempFolder::Bytes(folder_ / "dev.KVL");
  folder_.Put("cut.KVL", whole.substr(0, whole.size() - 2));
  EXPECT_EQ(Call({"save", "cut.KVL", "cut.KVL"}).Status, 0);
  EXPECT_EQ(TempFolder::Bytes(folder_ / "cut.KVL"), whole);
}

TEST_F(KorvaCommand, NoticesStandInFrontOfTheErrorTheyExplain) {
  // A thousands comma in the depth of cover shifts all values behind it.
  std::string shifted = TempFolder::Bytes(folder_ / "two.KVL");
  shifted.replace(shifted.find("\r\n900\r\n"), 5, "\r\n9,00");
  folder_.Put("shifted.KVL", shifted);
  const std::string notice = "a comma ends DepthCover";
  const ProgramResult report = Call({"report", "shifted.KVL"});
  EXPECT_LT(report.Err.find(notice), report.Err.find("Error occurred")) << report.Err;
  EXPECT_TRUE(Holds(Call({"batch", "shifted.KVL"}).Out, notice));
}

TEST_F(KorvaCommand, AReportNeverReplacesItsProject) {
  ExpectFailure({"report", "dev.KVL", "-o", "./dev.KVL"}, 2, "project file itself");
}

TEST_F(KorvaCommand, ReportAsPdf) {
  StoredProject metric = test::Stored(test::DevelopmentPanel(), kMetric);
  metric.ProjectInput.DepthCover = 120;
  folder_.Put("metric.KVL", ComposeProject(metric));
  const auto pdf = [this](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "report");
    const ProgramResult result = Call(std::move(arguments));
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(result.Out, "");
    return TempFolder::Bytes(folder_ / "out.Pdf");
  };
  const std::string letter = "[ 0 0 612 792 ]";
  const std::string a4 = "[ 0 0 595.3 841.9 ]";
  const std::string all = pdf({"two.KVL", "-o", "out.Pdf"});
  EXPECT_TRUE(all.starts_with("%PDF"));
  EXPECT_TRUE(Holds(all, letter));
  EXPECT_TRUE(Holds(pdf({"two.KVL", "-o", "out.Pdf", "--paper", "a4"}), a4));
  EXPECT_TRUE(Holds(pdf({"metric.KVL", "-o", "out.Pdf"}), a4));
  EXPECT_TRUE(Holds(all, "/Count 4")) << "pages follow each other on the sheets";
  EXPECT_TRUE(Holds(pdf({"two.KVL", "-o", "out.Pdf", "--page", "1"}), "/Count 1"));

  const std::string before = TempFolder::Bytes(folder_ / "out.Pdf");
  ExpectFailure({"report", "refused.KVL", "-o", "out.Pdf"}, 1, "slab cut");
  ExpectFailure({"report", "two.KVL", "-o", "out.Pdf", "--json"}, 2, "--json");
  ExpectFailure({"report", "two.KVL", "-o", "out.txt", "--paper", "a4"}, 2, "--paper");
  ExpectFailure({"report", "two.KVL", "--paper", "letter"}, 2, "--paper");
  ExpectFailure({"report", "two.KVL", "-o", "out.Pdf", "--paper", "a3"}, 2, "--paper");
  ExpectFailure({"report", "two.KVL", "-o", "gone/out.pdf"}, 3, "Path not found");
  EXPECT_EQ(TempFolder::Bytes(folder_ / "out.Pdf"), before);
}

TEST_F(KorvaCommand, BatchTables) {
  const ProgramResult table = Call({"batch", "."});
  EXPECT_EQ(table.Status, 3);  // the worst row's
  EXPECT_EQ(table.Err, "");    // no bar where there is no terminal
  const std::string text = Squeezed(table.Out);
  EXPECT_TRUE(Holds(
      text,
      "\n./two.KVL English traditional 0.94 0.61 1.35 0.38 1.01 0.27 0.55 0.26 [1 3 8 13] Sample panel\n"))
      << text;
  EXPECT_TRUE(Holds(text, "\n./dev.KVL English traditional 4.41 - - - - - - - [] Sample"));
  EXPECT_EQ(Call({"batch", ".", "--jobs", "1"}).Out, table.Out);

  EXPECT_EQ(Call({"batch", "dev.KVL", "two.KVL"}).Status, 0);
  EXPECT_EQ(Call({"batch", "dev.KVL", "refused.KVL"}).Status, 1);
  EXPECT_EQ(Call({"batch", "refused.KVL", "gone.KVL"}).Status, 3);
  std::filesystem::create_directory(folder_ / "empty");
  ExpectFailure({"batch", "empty"}, 3, "KVL");
}

TEST_F(KorvaCommand, BatchForPrograms) {
  const ProgramResult csv = Call({"batch", "two.KVL", "refused.KVL", "gone.KVL", "--csv"});
  EXPECT_EQ(csv.Status, 3);
  EXPECT_TRUE(csv.Out.starts_with("file,title,units,model,sf_development,sf_retreat,"));
  EXPECT_TRUE(
      Holds(csv.Out, "\ntwo.KVL,Sample panel,English,traditional,0.937941828002465,0.608567498752849,"));

  StoredProject skew = test::Stored(test::DevelopmentPanel());
  skew.ProjectInput.XcutAngle = 29;  // which the form would refuse
  skew.ProjectTitle = "North, \"deep\"";
  folder_.Put("skew.KVL", ComposeProject(skew));
  EXPECT_TRUE(Holds(Call({"batch", "skew.KVL", "--csv"}).Out, "\nskew.KVL,\"North, \"\"deep\"\"\",English,"));
  EXPECT_TRUE(Holds(Call({"batch", "skew.KVL"}).Out, "29 degrees"));
  EXPECT_TRUE(Holds(Call({"report", "skew.KVL"}).Err, "29 degrees"));

  skew.ProjectTitle = "\x1b[2J";
  folder_.Put("skew.KVL", ComposeProject(skew));
  EXPECT_TRUE(Holds(Call({"batch", "skew.KVL"}).Out, "?[2J")) << "no orders to the terminal";

  folder_.Put("notes.KVL", "just notes\n");
  const json rows =
      json::parse(Call({"batch", "two.KVL", "refused.KVL", "gone.KVL", "notes.KVL", "--json"}).Out);
  EXPECT_EQ(rows[0]["error"]["number"], 53);
  EXPECT_EQ(rows[1]["error"], json({{"number", 0}, {"text", "Invalid file format"}}));
  EXPECT_TRUE(rows[2]["refused"].is_string());
  EXPECT_NEAR(rows[3]["SFKorva"]["2"], 0.608567498752849, 1e-12);
  EXPECT_FALSE(rows[3].contains("error"));
}

TEST_F(KorvaCommand, BadFiles) {
  ExpectFailure({"report", "gone.KVL"}, 3, "File not found (53)");
  folder_.Put("notes.KVL", "just notes\n");
  ExpectFailure({"report", "notes.KVL"}, 3, "Invalid file format");
  std::string text = FileOf(test::DevelopmentPanel());
  folder_.Put("nan.KVL", text.replace(text.find("\r\n400\r\n") + 2, 3, "nan"));
  ExpectFailure({"calc", "nan.KVL"}, 3, "nan.KVL, line 8: expected DepthCover");
}

TEST_F(KorvaCommand, FullDiskIsAnError) {
  for (const char* command : {"report", "calc", "batch"}) {
    const ProgramResult result =
        RunProgram({KORVA_PROGRAM, {command, "dev.KVL"}, folder_ / "", {}, "/dev/full"});
    EXPECT_EQ(result.Status, 3);
    EXPECT_TRUE(Holds(result.Err, "Disk full")) << result.Err;
  }
}

}  // namespace
}  // namespace korva
