// What the shells and the manual are told of the command, against what the command itself says.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

const std::vector<std::string> kCommands = {"",     "report",  "calc",  "batch",       "sweep",       "plan",
                                            "save", "convert", "units", "import vosk", "import cases"};

std::string Words(const std::string& kind) {
  return TempFolder::Bytes(std::string(KORVA_WORDS) + "/korva." + kind);
}

std::vector<std::string> Split(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

// The options that `korva COMMAND --help` lists.
std::set<std::string> OptionsOf(const std::string& command) {
  std::vector<std::string> call = Split(command);
  call.emplace_back("--help");
  const ProgramResult help = RunProgram({KORVA_PROGRAM, call, "/", {}, {}});
  EXPECT_EQ(help.Status, 0) << command;
  static const std::regex line("\n  (-[^ ]+)");
  std::set<std::string> options;
  for (std::sregex_iterator found(help.Out.begin(), help.Out.end(), line), end; found != end; ++found) {
    const std::string names = (*found)[1];
    const auto comma = names.find(',');
    options.insert(names.substr(0, comma));
    options.insert(names.substr(comma + 1));  // the whole one again where there is no comma
  }
  EXPECT_GE(options.size(), 2U) << command;
  return options;
}

using List = std::vector<std::string>;

class Completion : public testing::Test {
 protected:
  // What bash offers at the end of `line`, in a folder with two files.
  std::vector<std::string> Offered(const std::string& line) const {
    const std::string script = folder_.Put("try", Words("bash") + R"(
read -ra COMP_WORDS <<<"$1"
[[ $1 != *' ' ]] || COMP_WORDS+=("")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_korva
printf '%s\n' "${COMPREPLY[@]}"
)");
    const ProgramResult result =
        RunProgram({"/bin/bash", {"--norc", script, line}, folder_ / "files", {}, {}});
    EXPECT_EQ(result.Err, "") << line;
    std::vector<std::string> lines;
    std::istringstream printed(result.Out);
    for (std::string word; std::getline(printed, word);) {
      lines.push_back(word);
    }
    return lines == List{""} ? List() : lines;
  }

  void SetUp() override {
    std::filesystem::create_directory(folder_ / "files");
    folder_.Put("files/panel one.KVL", "");
    folder_.Put("files/report", "");
  }

  const TempFolder folder_;
};

TEST_F(Completion, NamesEveryOptionOfEveryCommandAsTheManualAndFishDo) {
  const std::string fish = Words("fish");
  std::string page = Words("man");
  std::erase(page, '\\');
  for (const std::string& command : kCommands) {
    SCOPED_TRACE(command);
    const std::set<std::string> options = OptionsOf(command);
    const List offered = Offered("korva " + command + (command.empty() ? "-" : " -"));
    std::set<std::string> expected = options;
    expected.merge(std::set<std::string>{"--settings", "--set"});  // before and behind any command
    EXPECT_EQ(std::set<std::string>(offered.begin(), offered.end()), expected);
    EXPECT_EQ(offered.size(), expected.size());

    const auto begin = page.find(command.empty() ? ".SH OPTIONS\n" : "\n.SS " + command + "\n");
    ASSERT_NE(begin, std::string::npos);
    const std::string section = page.substr(begin, page.find("\n.S", begin + 1) - begin);
    for (const std::string& option : options) {
      const bool common = option == "-h" || option == "--help";
      EXPECT_EQ(section.find("fB" + option + "fR") == std::string::npos, common && !command.empty())
          << option;
      const bool whole = option.starts_with("--");
      EXPECT_NE(fish.find((whole ? " -l " : " -s ") + option.substr(whole ? 2 : 1)), std::string::npos)
          << option;
    }
  }
}

TEST_F(Completion, KnowsCommandsValuesAndFiles) {
  EXPECT_EQ(Offered("korva "),
            (List{"report", "calc", "batch", "sweep", "plan", "save", "convert", "units", "import"}));
  EXPECT_EQ(Offered("korva re"), List{"report"});
  EXPECT_EQ(Offered("korva import "), (List{"vosk", "cases"}));
  EXPECT_EQ(Offered("korva report --model "), (List{"traditional", "laminated", "compared"}));
  EXPECT_EQ(Offered("korva report --model = "), (List{"traditional", "laminated", "compared"}));
  EXPECT_EQ(Offered("korva report --model = l"), List{"laminated"});
  EXPECT_EQ(Offered("korva report --model ="), (List{"traditional", "laminated", "compared"}));
  EXPECT_EQ(Offered("korva --set A=1 report x --paper a"), List{"a4"});
  EXPECT_EQ(Offered("korva report pa"), List{"panel one.KVL"});
  EXPECT_EQ(Offered("korva report --settings re"), List{"report"}) << "the file";
  EXPECT_EQ(Offered("korva plan report -o pan"), List{"panel one.KVL"});
  EXPECT_EQ(Offered("korva units str"), (List{"stress", "stressgrad"}));
  EXPECT_EQ(Offered("korva sweep x --min "), List{});
  EXPECT_EQ(Offered("korva sweep zz"), List{});
}

TEST(ManualPage, OfTheDesktopProgramDescribesItsOptions) {
  std::string page = TempFolder::Bytes(std::string(KORVA_PACKAGING) + "/korva-strond.1");
  std::erase(page, '\\');
  for (const char* option : {"--help", "-h", "--version"}) {
    EXPECT_NE(page.find(std::string("fB") + option + "fR"), std::string::npos) << option;
  }
}

TEST(FishWords, KnowCommandsAndValues) {
  const TempFolder folder;
  const auto offered = [&](const std::string& line) {
    const std::string script = folder.Put("try.fish", Words("fish") + "complete -C " + '"' + line + "\"\n");
    const ProgramResult result =
        RunProgram({"/usr/bin/fish", {"--no-config", script}, folder / "", {{"HOME", folder / ""}}, {}});
    EXPECT_EQ(result.Status, 0) << result.Err;
    std::string words;
    std::istringstream lines(result.Out);
    for (std::string word; std::getline(lines, word);) {
      words += word.substr(0, word.find('\t')) + ' ';
    }
    return words;
  };
  const std::string commands = "batch calc convert import plan report save sweep units ";
  EXPECT_EQ(offered("korva "), commands);
  EXPECT_EQ(offered("korva --settings z.txt --set A=1 "), commands);
  EXPECT_EQ(offered("korva --settings z.txt re"), "report ");
  EXPECT_EQ(offered("korva import "), "cases vosk ");
  EXPECT_EQ(offered("korva report --model l"), "laminated ");
  EXPECT_EQ(offered("korva units str"), "stress stressgrad ");
}

}  // namespace
}  // namespace korva
