// The command as a black box: what it prints, where, and its exit status.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "files/ProjectFile.h"
#include "support/Panels.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

using nlohmann::json;
using testing::Test;

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

// The options that a help text lists: of each, the last of its names.
std::set<std::string> OptionsIn(const std::string& help) {
  std::set<std::string> options;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("  -")) {
      const std::string names = line.substr(2, line.find(' ', 2) - 2);
      options.insert(names.substr(names.rfind(',') + 1));
    }
  }
  return options;
}

std::string WithoutCarriageReturns(std::string text) {
  std::erase(text, '\r');
  return text;
}

// A folder with one project of each kind, in which the calls run.
class KorvaCommand : public Test {
 protected:
  KorvaCommand() {
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

// Whoever adds an option adds it here, and a test of it below.
TEST_F(KorvaCommand, HelpNamesEveryOption) {
  const std::set<std::string> common = {"--help", "--settings", "--set"};
  const std::map<std::string, std::set<std::string>> own = {
      {"", {"--version"}},
      {"report", {"--page", "--model", "--json", "-o"}},
      {"calc", {"--model", "--json"}},
      {"batch", {"--model", "--csv", "--json", "--jobs"}},
      {"save", {"--force"}},
      {"convert", {"--force"}}};
  for (const auto& [command, options] : own) {
    const ProgramResult help = command.empty() ? Call({"--help"}) : Call({command, "--help"});
    EXPECT_EQ(help.Status, 0);
    EXPECT_EQ(help.Err, "");
    std::set<std::string> expected = options;
    expected.insert("--help");
    if (command.empty()) {
      expected.insert(common.begin(), common.end());
    } else {
      EXPECT_TRUE(Holds(help.Out, "Example:\n  korva " + command)) << help.Out;
      EXPECT_TRUE(Holds(Call({"--help"}).Out, "\n  " + command + " "));
    }
    EXPECT_EQ(OptionsIn(help.Out), expected) << help.Out;
  }
}

TEST_F(KorvaCommand, Version) {
  const ProgramResult result = Call({"--version"});
  EXPECT_EQ(result.Status, 0);
  EXPECT_EQ(result.Out, "korva 1.1.05\n");
}

TEST_F(KorvaCommand, UsageErrors) {
  ExpectFailure({"reprot", "two.KVL"}, 2, "did you mean \"korva report\"?");
  ExpectFailure({"xyzzy"}, 2, "korva --help");
  ExpectFailure({"report"}, 2, "see \"korva report --help\"");
  ExpectFailure({"report", "two.KVL", "--page", "6"}, 2, "--page");
  ExpectFailure({"report", "two.KVL", "--model", "other"}, 2, "--model");
  ExpectFailure({"report", "two.KVL", "--pages"}, 2, "--pages");
  ExpectFailure({"batch", ".", "--csv", "--json"}, 2, "--csv");
  ExpectFailure({"batch", ".", "--jobs", "0"}, 2, "--jobs");
  ExpectFailure({"save", "two.KVL"}, 2, "OUT");
  ExpectFailure({"calc", "two.KVL", "--set", "NoSuchKey=1"}, 2, "NoSuchKey");
  ExpectFailure({"calc", "two.KVL", "--set", "OutputStrUnits=x"}, 2, "OutputStrUnits");
  ExpectFailure({"calc", "two.KVL", "--set", "OutputStrUnits="}, 2, "OutputStrUnits");
  ExpectFailure({"calc", "two.KVL", "--set", "OutputStrUnits"}, 2, "KEY=VALUE");
  EXPECT_EQ(Call({}).Status, 2);
}

TEST_F(KorvaCommand, ReportPrintsPagesAndWarnings) {
  const ProgramResult result = Call({"report", "two.KVL"});
  EXPECT_EQ(result.Status, 0);
  std::vector<std::string> titles;
  std::string rest = "\f\n" + result.Out;
  for (std::size_t at = 0; (at = rest.find("\f\n", at)) != std::string::npos; at += 2) {
    EXPECT_TRUE(at == 0 || rest[at - 1] == '\n');  // a line of its own
    titles.push_back(rest.substr(at + 2, rest.find('\n', at + 2) - at - 2));
  }
  EXPECT_EQ(titles, (std::vector<std::string>{
                        "KORVA-STROND module build: 1.1.05", "[KORVA STABILITY FACTORS]",
                        "[DATA ABOUT THE ACTIVE MINING ZONE (AMZ)]", "[PILLAR PARAMETERS]",
                        "[BARRIER PILLAR PARAMETERS]", "[REMNANT PILLAR AND LEAVE PILLAR PARAMETERS]"}));
  EXPECT_FALSE(Holds(result.Out, "\r"));
  EXPECT_TRUE(Holds(result.Out, "\nProject File: two.KVL\n"));  // as typed
  EXPECT_TRUE(Holds(Call({"report", "./two.KVL"}).Out, "\nProject File: ./two.KVL\n"));
  EXPECT_TRUE(Holds(result.Err, "KORVA Warnings\nB. Analysis of the KORVA case history"));
  EXPECT_FALSE(Holds(result.Err, "\r"));
  EXPECT_EQ(Call({"report", "dev.KVL"}).Err, "");
}

TEST_F(KorvaCommand, ReportPagesAndFile) {
  const std::string pages = Call({"report", "two.KVL", "--page", "3", "--page", "1"}).Out;
  EXPECT_TRUE(pages.starts_with("[PILLAR PARAMETERS]\n"));
  EXPECT_TRUE(Holds(pages, "\n\f\n[KORVA STABILITY FACTORS]\n"));
  EXPECT_FALSE(Holds(pages, "[BARRIER PILLAR PARAMETERS]"));

  const ProgramResult result = Call({"report", "dev.KVL", "-o", "out.txt"});
  EXPECT_EQ(result.Status, 0);
  EXPECT_EQ(result.Out, "");
  EXPECT_EQ(TempFolder::Bytes(folder_ / "out.txt"), Call({"report", "dev.KVL"}).Out);
  ExpectFailure({"report", "dev.KVL", "-o", "gone/out.txt"}, 3, "Path not found");
  ExpectFailure({"report", "dev.KVL", "-o", "out.pdf"}, 3, "PDF");
}

TEST_F(KorvaCommand, ReportAsJson) {
  const json report = json::parse(Call({"report", "two.KVL", "--json"}).Out);
  EXPECT_EQ(report.size(), 4U);
  EXPECT_EQ(report["file"], "two.KVL");
  EXPECT_TRUE(report["refused"].is_null());
  ASSERT_EQ(report["pages"].size(), 6U);
  EXPECT_TRUE(report["pages"][1].get<std::string>().starts_with(
      "[KORVA STABILITY FACTORS]\r\n\r\nDevelopment (KORVA)"));
  EXPECT_TRUE(report["warnings"].get<std::string>().starts_with("B. Analysis"));
  const std::string page3 = Call({"report", "two.KVL", "--page", "3"}).Out;
  EXPECT_EQ(WithoutCarriageReturns(report["pages"][3]), page3);
}

TEST_F(KorvaCommand, RefusalsAndErrorsAsJson) {
  const std::string reason = "Cannot take slab cut from first side barrier when Row A pillars are left";
  ExpectFailure({"report", "refused.KVL"}, 1, reason);
  ExpectFailure({"calc", "refused.KVL"}, 1, reason);
  ExpectFailure({"report", "faulty.KVL"}, 3, "Division by zero (11)");
  ExpectFailure({"calc", "faulty.KVL"}, 3, "PillarLength");
  for (const char* command : {"report", "calc"}) {
    const ProgramResult refused = Call({command, "refused.KVL", "--json"});
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(
        json::parse(refused.Out),
        json({{"file", "refused.KVL"}, {"refused", reason}, {"pages", json::array()}, {"warnings", ""}}));
    const ProgramResult faulty = Call({command, "faulty.KVL", "--json"});
    EXPECT_EQ(faulty.Status, 3);
    const json error = json::parse(faulty.Out);
    EXPECT_EQ(error["file"], "faulty.KVL");
    EXPECT_EQ(error["error"]["number"], 11);
    EXPECT_TRUE(Holds(error["error"]["text"], "PillarLength"));
  }
}

TEST_F(KorvaCommand, CalcGivesEveryNumber) {
  const ProgramResult result = Call({"calc", "two.KVL", "--json"});
  EXPECT_EQ(result.Status, 0);
  const json calc = json::parse(result.Out);
  EXPECT_NEAR(calc["SFKorva"]["2"], 0.608567498752849, 1e-12);
  EXPECT_NEAR(calc["BarrierSF"]["1"]["4"], 0.3836236272691482, 1e-12);
  EXPECT_EQ(calc["Fpa"], 0.6899999976158142);  // 32 bits, widened
  EXPECT_EQ(calc["LoadCond"], 4);
  EXPECT_EQ(calc["PanelWidth"], 300);
  EXPECT_EQ(calc["LTRANSBAR"]["2"]["1"], 0);
  EXPECT_EQ(calc["PillarArea"].size(), 9U);
  EXPECT_EQ(calc["PillarArea"]["9"], 0);
  EXPECT_EQ(calc["AbutLoad"].size(), 3U);
  EXPECT_TRUE(calc.contains("SideStressFirst") && calc.contains("SideStressSecond"));
  EXPECT_EQ(calc["form"],
            json({{"Calc_AMZ", 150}, {"Calc_Arch", 0.6899999976158142}, {"Calc_Ext_Ratio", "50.0"}}));

  const std::string text = Squeezed(Call({"calc", "two.KVL"}).Out);
  EXPECT_TRUE(Holds(text, "\nAMZLoad[2][2] 2837786544.9035")) << text;
  EXPECT_TRUE(Holds(text, "\nCalc_Ext_Ratio 50.0\n"));
}

TEST_F(KorvaCommand, ModelsThatAreNotThere) {
  ExpectFailure({"report", "dev.KVL", "--model", "laminated"}, 3,
                "laminated overburden model is not part of this version");
  ExpectFailure({"calc", "dev.KVL", "--model", "compared"}, 3, "not part of this version");
  ExpectFailure({"report", "laminated.KVL"}, 3, "not part of this version");
  const ProgramResult traditional = Call({"report", "laminated.KVL", "--model", "traditional"});
  EXPECT_EQ(traditional.Status, 0);
  EXPECT_TRUE(Holds(traditional.Out, "KORVA Traditional Model"));
  EXPECT_EQ(Call({"calc", "laminated.KVL", "--model", "traditional"}).Status, 0);
  for (const char* command : {"sweep", "plan", "import", "units"}) {
    ExpectFailure({command, "dev.KVL", "--json"}, 3, "not built yet");
  }
}

TEST_F(KorvaCommand, Options) {
  const auto page = [this](std::vector<std::string> options) {
    options.insert(options.end(), {"report", "two.KVL", "--page", "0", "--page", "1"});
    const ProgramResult result = Call(options);
    EXPECT_EQ(result.Status, 0) << result.Err;
    return result.Out;
  };
  EXPECT_TRUE(Holds(page({}), "Units:  (ft) (psi) (tons)\n"));
  EXPECT_TRUE(Holds(page({"--set", "outputstrunits=1", "--set", "OutputStrGradUnits = 0"}),
                    "Units:  (ft) (psf) (lbs)\n"));
  EXPECT_TRUE(Holds(page({}), "Retreat (KORVA)..............................  0.61\n"));
  EXPECT_TRUE(
      Holds(page({"--set", "RoundKORVASF=2"}), "Retreat (KORVA)..............................  0.60\n"));
  // An option behind the command counts as well.
  EXPECT_FALSE(Holds(Call({"report", "two.KVL", "--set", "PrintModuleHeader=0"}).Out, "module build"));

  // What a start-up forces stands behind the settings file, and in front of the call's own changes.
  folder_.Put("my.ini", "[KORVAOptions]\nOutputStrUnits=1\nRoundKORVASF=2\n");
  EXPECT_TRUE(Holds(page({"--settings", "my.ini"}), "Units:  (ft) (psf) (lbs)\n"));
  EXPECT_TRUE(Holds(page({"--settings", "my.ini"}), "  0.61\n"));
  EXPECT_TRUE(
      Holds(page({"--settings", "my.ini", "--set", "OutputStrUnits=0"}), "Units:  (ft) (psi) (lbs)\n"));
  ExpectFailure({"--settings", "gone.ini", "report", "two.KVL"}, 3, "gone.ini");
}

TEST_F(KorvaCommand, SaveAndConvertRoundTrips) {
  EXPECT_EQ(Call({"save", "two.KVL", "copy.KVL"}).Status, 0);
  EXPECT_EQ(TempFolder::Bytes(folder_ / "copy.KVL"), TempFolder::Bytes(folder_ / "two.KVL"));
  folder_.Put(
      "old.KVL",
      "KORVA_500\n0\nOld\n##StartDesc##\n\n##EndDesc##\n6\n400\n90\n20\n80\n4\n60\n60\n60\n900\n162\n100\n1\n"
      "0\n0\n21\n0\n21\n0\n0\n0\n21\n0\n0\n");
  EXPECT_EQ(Call({"save", "old.KVL", "old.KVL"}).Status, 0);
  EXPECT_TRUE(TempFolder::Bytes(folder_ / "old.KVL").starts_with("KORVA_603\r\n 0 \r\nOld\r\n"));
  EXPECT_EQ(Call({"report", "old.KVL", "--page", "1"}).Out, Call({"report", "dev.KVL", "--page", "1"}).Out);

  EXPECT_EQ(Call({"convert", "two.KVL", "metric.KVL"}).Status, 0);
  EXPECT_TRUE(TempFolder::Bytes(folder_ / "metric.KVL").starts_with("KORVA_603\r\n 1 \r\nSample panel\r\n"));
  EXPECT_TRUE(Holds(TempFolder::Bytes(folder_ / "metric.KVL"), "\r\n1.83\r\n274.32\r\n90\r\n6.1\r\n"));
  EXPECT_EQ(Call({"convert", "metric.KVL", "back.KVL"}).Status, 0);
  EXPECT_TRUE(Holds(TempFolder::Bytes(folder_ / "back.KVL"), "\r\n6\r\n900\r\n90\r\n20.01\r\n"));
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
  EXPECT_EQ(Call({"save", "rest.KVL", "other.KVL"}).Status, 0);
  EXPECT_EQ(Call({"save", "--force", "rest.KVL", "rest.KVL"}).Status, 0);
  EXPECT_EQ(TempFolder::Bytes(folder_ / "rest.KVL"), TempFolder::Bytes(folder_ / "dev.KVL"));
  EXPECT_EQ(Call({"convert", "--force", "rest.KVL", "rest.KVL"}).Status, 0);
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
  EXPECT_TRUE(Holds(text, "\n./dev.KVL English traditional 4.41 - - - - - - - [] Sample panel\n"));
  EXPECT_TRUE(Holds(text, "\n./refused.KVL refused: Cannot take slab cut"));
  EXPECT_TRUE(Holds(text, "\n./faulty.KVL error: Division by zero"));
  EXPECT_EQ(Call({"batch", ".", "--jobs", "1"}).Out, table.Out);

  EXPECT_EQ(Call({"batch", "dev.KVL", "two.KVL"}).Status, 0);
  EXPECT_EQ(Call({"batch", "dev.KVL", "refused.KVL"}).Status, 1);
  EXPECT_EQ(Call({"batch", "refused.KVL", "gone.KVL"}).Status, 3);
  EXPECT_EQ(Call({"batch", "laminated.KVL"}).Status, 3);
  EXPECT_EQ(Call({"batch", "laminated.KVL", "--model", "traditional"}).Status, 0);
  std::filesystem::create_directory(folder_ / "empty");
  ExpectFailure({"batch", "empty"}, 3, "KVL");
}

TEST_F(KorvaCommand, BatchForPrograms) {
  const ProgramResult csv = Call({"batch", "two.KVL", "refused.KVL", "gone.KVL", "--csv"});
  EXPECT_EQ(csv.Status, 3);
  const std::string start = "file,title,units,model,sf_development,sf_retreat,";
  EXPECT_TRUE(csv.Out.starts_with(start));
  EXPECT_TRUE(Holds(csv.Out, "\ngone.KVL,,,,"));
  EXPECT_TRUE(Holds(csv.Out, "\nrefused.KVL,Sample panel,English,traditional,,,"));
  EXPECT_TRUE(
      Holds(csv.Out, "\ntwo.KVL,Sample panel,English,traditional,0.937941828002465,0.608567498752849,"));
  EXPECT_EQ(std::count(csv.Out.begin(), csv.Out.end(), '\n'), 4);

  Project quoted = test::DevelopmentPanel();
  StoredProject stored = test::Stored(quoted);
  stored.ProjectTitle = "North, \"deep\"";
  folder_.Put("quoted.KVL", ComposeProject(stored));
  EXPECT_TRUE(
      Holds(Call({"batch", "quoted.KVL", "--csv"}).Out, "\nquoted.KVL,\"North, \"\"deep\"\"\",English,"));

  const json rows = json::parse(Call({"batch", "two.KVL", "refused.KVL", "gone.KVL", "--json"}).Out);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0]["file"], "gone.KVL");
  EXPECT_EQ(rows[0]["error"]["number"], 53);
  EXPECT_TRUE(rows[1]["refused"].get<std::string>().starts_with("Cannot take slab cut"));
  EXPECT_TRUE(rows[2]["refused"].is_null());
  EXPECT_NEAR(rows[2]["SFKorva"]["2"], 0.608567498752849, 1e-12);
  EXPECT_EQ(rows[2]["RuleFlags"], json({1, 3, 8, 13}));
}

TEST_F(KorvaCommand, TellsWhatTheFormWouldRefuse) {
  Project p = test::DevelopmentPanel();
  p.XcutAngle = 29;
  folder_.Put("skew.KVL", FileOf(p));
  const ProgramResult result = Call({"report", "skew.KVL"});
  EXPECT_EQ(result.Status, 0);
  EXPECT_TRUE(Holds(result.Err, "29 degrees"));
  EXPECT_TRUE(Holds(Call({"batch", "skew.KVL"}).Out, "29 degrees"));
}

TEST_F(KorvaCommand, BadFiles) {
  folder_.Put("empty.KVL", "");
  folder_.Put("notes.KVL", "just notes\n");
  std::filesystem::create_directory(folder_ / "folder.KVL");
  const std::string whole = FileOf(test::DevelopmentPanel());
  folder_.Put("torn.KVL", whole.substr(0, whole.size() - 6));
  for (const char* command : {"report", "calc"}) {
    ExpectFailure({command, "gone.KVL"}, 3, "File not found (53)");
    ExpectFailure({command, "gone/two.KVL"}, 3, "Path not found (76)");
    ExpectFailure({command, "folder.KVL"}, 3, "Path/File access error (75)");
    ExpectFailure({command, "empty.KVL"}, 3, "Input past end of file (62)");
    ExpectFailure({command, "torn.KVL"}, 3, "Input past end of file (62)");
    ExpectFailure({command, "notes.KVL"}, 3, "Invalid file format");
  }
  const json foreign = json::parse(Call({"report", "notes.KVL", "--json"}).Out);
  EXPECT_TRUE(Holds(foreign["error"]["text"], "Invalid file format"));

  const auto faultOf = [&](const std::string& value) {
    std::string text = whole;
    folder_.Put("value.KVL", text.replace(text.find("\r\n400\r\n") + 2, 3, value));
    const ProgramResult result = Call({"calc", "value.KVL", "--json"});
    EXPECT_EQ(result.Status, 3) << value;
    EXPECT_TRUE(Holds(result.Err, "value.KVL, line 8: expected DepthCover")) << result.Err;
    return json::parse(result.Out)["error"]["number"].get<int>();
  };
  for (const char* text : {"nan", "inf", "-Infinity", "4OO", "400ft", "0x10"}) {
    EXPECT_EQ(faultOf(text), 13) << text;
  }
  EXPECT_EQ(faultOf("1e999"), 6);
}

TEST_F(KorvaCommand, RandomBytesAreRefusedCalmly) {
  std::mt19937 random(7);
  for (int n = 0; n < 40; ++n) {
    std::string bytes(n % 2 == 0 ? "KORVA_603\r\n" : "");
    for (int at = 0; at < 50 * n; ++at) {
      bytes += static_cast<char>(random());
    }
    folder_.Put("noise.KVL", bytes);
    for (const std::vector<std::string>& call : {std::vector<std::string>{"report", "noise.KVL"},
                                                 {"calc", "noise.KVL", "--json"},
                                                 {"batch", "noise.KVL"}}) {
      const ProgramResult result = Call(call);
      EXPECT_EQ(result.Status, 3) << n << ": " << result.Err;
      EXPECT_FALSE(Holds(result.Err, "anitizer")) << result.Err;
    }
  }
}

TEST_F(KorvaCommand, LocaleOfTheUserDoesNotCount) {
  Project p = test::TwoSideGobs();
  p.EntryHeight = 6.5;
  folder_.Put("half.KVL", FileOf(p));
  const std::vector<std::pair<std::string, std::string>> german = {{"LC_ALL", "de_DE.UTF-8"},
                                                                   {"LOCPATH", folder_ / ""}};
  RunProgram(
      {"/usr/bin/localedef", {"-i", "de_DE", "-f", "UTF-8", folder_ / "de_DE.UTF-8"}, folder_ / "", {}, {}});
  if (RunProgram({"/usr/bin/locale", {"decimal_point"}, folder_ / "", german, {}}).Out != ",\n") {
    GTEST_SKIP() << "this machine cannot make a locale with a decimal comma; its package is locales";
  }
  for (const std::vector<std::string>& call : {std::vector<std::string>{"report", "half.KVL"},
                                               {"calc", "half.KVL"},
                                               {"calc", "half.KVL", "--json"},
                                               {"batch", "half.KVL", "--csv"}}) {
    EXPECT_EQ(Call(call, german).Out, Call(call, {{"LC_ALL", "C"}}).Out);
  }
}

TEST_F(KorvaCommand, FullDiskIsAnError) {
  for (const std::vector<std::string>& call :
       {std::vector<std::string>{"report", "dev.KVL"}, {"calc", "dev.KVL", "--json"}, {"batch", "dev.KVL"}}) {
    const ProgramResult result = RunProgram({KORVA_PROGRAM, call, folder_ / "", {}, "/dev/full"});
    EXPECT_EQ(result.Status, 3);
    EXPECT_TRUE(Holds(result.Err, "Disk full")) << result.Err;
  }
}

}  // namespace
}  // namespace korva
