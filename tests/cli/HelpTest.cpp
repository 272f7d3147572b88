// The numbers that the pages of docs/help quote, held against what the command computes. A comment above a
// block or a table says what it comes from:
//   <!-- check: korva ARGUMENTS [with FIELD=VALUE...] [in metric units] -->  text that the command prints, in
//                                                           pieces between lines of "..."
//   <!-- check: calc FILE -->          a table whose first cell names a result and whose last one holds it
//   <!-- check: table FILE NAME... --> a table with a column for each name: first fields of the parameters
//                                      form by their controls' names without txt or chk, which are set, then
//                                      results as calc names them, or RULES for the rules that spoke, or
//                                      WARNINGS for those that print a text, by name
//   <!-- check: rows FILE NAME... : FIELD=VALUE... : ... -->  a table with words in its first column and then
//                                      a column for each name; behind each colon stands what a row changes,
//                                      "-" for nothing
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "commands/FileCommands.h"
#include "files/ProjectFile.h"
#include "input/ConvertProjectUnits.h"
#include "input/ParameterTable.h"
#include "support/RunProgram.h"
#include "support/ScriptedMessages.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using Changes = std::vector<std::pair<std::string, double>>;

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<std::string> Lines(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string Bare(const std::string& text) {
  const auto first = text.find_first_not_of(" `");
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" `") - first + 1);
}

// The cells of a row of a table.
std::vector<std::string> Cells(const std::string& row) {
  std::vector<std::string> cells;
  std::istringstream stream(row.substr(1, row.rfind('|') - 1));
  for (std::string cell; std::getline(stream, cell, '|');) {
    cells.push_back(Bare(cell));
  }
  return cells;
}

// Whether `shown` is `value` with as many digits as it shows.
bool Shows(const std::string& shown, double value) {
  const auto exponent = shown.find('e');
  const std::string mantissa = shown.substr(0, exponent);
  const auto point = mantissa.find('.');
  const int decimals = point == std::string::npos ? 0 : static_cast<int>(mantissa.size() - point - 1);
  const int power = exponent == std::string::npos ? 0 : std::stoi(shown.substr(exponent + 1));
  const double half = 0.5 * std::pow(10, power - decimals);
  return std::abs(std::stod(shown) - value) <= half * (1 + 1e-6);
}

// Sets a field of the parameters form by its control's name without "txt" or "chk", or what has another
// control.
bool SetField(Project& p, const std::string& name, double value) {
  constexpr std::string_view kCenters = "XcutCenters.";
  for (const NumberField& field : kNumberFields) {
    if (field.Control == "txt" + name) {
      std::visit([&](auto member) { p.*member = static_cast<std::decay_t<decltype(p.*member)>>(value); },
                 field.Member);
      return true;
    }
  }
  for (const FlagField& field : kFlagFields) {
    if (field.Control == "chk" + name) {
      p.*field.Member = static_cast<int>(value);
      return true;
    }
  }
  if (name == "NumberEntries") {
    p.NumberEntries = static_cast<int>(value);
  } else if (name == "LoadingCondition") {
    p.LoadingCondition = static_cast<PanelLoading>(value);
  } else if (name.starts_with(kCenters)) {
    p.XcutCenters[std::stoi(name.substr(kCenters.size()))] = value;
  } else {
    return false;
  }
  return true;
}

// FIELD=VALUE.
std::pair<std::string, double> Change(const std::string& word) {
  const auto equal = word.find('=');
  return {word.substr(0, equal), std::stod(word.substr(equal + 1))};
}

class HelpPage {
 public:
  explicit HelpPage(const fs::path& page) : name_(Utf8Of(page.filename())) {
    std::ifstream file(page, std::ios::binary);
    lines_ = Lines({std::istreambuf_iterator<char>(file), {}});
    fs::create_directory(folder_ / "tmp");
  }

  // Holds all that the page quotes; gives how many quotations there are.
  int Check() {
    constexpr std::string_view kMark = "<!-- check: ";
    int checks = 0;
    for (at_ = 0; at_ < lines_.size(); ++at_) {
      const std::string line = lines_[at_];
      if (line.starts_with(kMark)) {
        ++at_;
        ++checks;
        const auto words = Words(line.substr(kMark.size(), line.rfind("-->") - kMark.size()));
        SCOPED_TRACE(fmt::format("{}, line {}: {}", name_, at_, line));
        words.front() == "korva"  ? CheckText(words)
        : words.front() == "calc" ? CheckWorking(words.at(1))
        : words.front() == "rows" ? CheckRows(words)
                                  : CheckTable(words);
      }
    }
    return checks;
  }

 private:
  // Writes the example with these changes, under its own name.
  void PutProject(const std::string& example, const Changes& changes, bool metric = false) {
    Korva korva;
    korva.ProjectFileName = std::string(KORVA_EXAMPLES) + "/" + example;
    ScriptedMessages none;
    ASSERT_TRUE(FileOpen(korva, none));
    StoredProject& project = korva.Stored;
    for (const auto& [name, value] : changes) {
      ASSERT_TRUE(SetField(project.ProjectInput, name, value)) << name;
    }
    if (metric) {
      ConvertProjectUnits(project, kMetric);
    }
    folder_.Put(example, ComposeProject(project));
  }

  std::string Call(std::vector<std::string> arguments) const {
    return RunProgram({KORVA_PROGRAM, std::move(arguments), folder_ / "", {{"TMPDIR", folder_ / "tmp"}}, {}})
        .Out;
  }

  void CheckText(std::vector<std::string> words) {
    Changes changes;
    const bool metric = words.back() == "units";
    words.resize(words.size() - (metric ? 3 : 0));
    for (; words.back().find('=') != std::string::npos; words.pop_back()) {
      changes.push_back(Change(words.back()));
    }
    words.resize(words.size() - (changes.empty() ? 0 : 1));  // "with"
    PutProject(words.at(2), changes, metric);
    std::string output = "\n";
    for (const std::string& line : Lines(Call({words.begin() + 1, words.end()}))) {
      output += line.substr(0, line.find_last_not_of(" \r") + 1) + "\n";
    }

    ASSERT_TRUE(lines_.at(at_).starts_with("```"));
    std::size_t from = 0;
    std::string piece = "\n";
    for (++at_; !lines_.at(at_).starts_with("```"); ++at_) {
      const bool gap = lines_[at_] == "...";
      piece += gap ? "" : lines_[at_] + "\n";
      if (gap || lines_.at(at_ + 1).starts_with("```")) {
        from = output.find(piece, from);
        ASSERT_NE(from, std::string::npos) << "not printed:" << piece << "but" << output;
        piece = "\n";
      }
    }
  }

  json Results(const std::string& example, bool laminated) const {
    return json::parse(Call({"calc", example, "--json", "--model", laminated ? "compared" : "traditional"}));
  }

  static double Value(const json& results, const std::string& path) {
    json::json_pointer pointer;
    std::istringstream stream(path);
    for (std::string key; std::getline(stream, key, '.');) {
      pointer /= key;
    }
    return results.at(pointer).get<double>();
  }

  void ExpectNumber(const std::string& shown, const std::string& name, const json& results) const {
    const double value = Value(results, name);
    EXPECT_TRUE(Shows(shown, value)) << lines_[at_] << ": " << name << " is " << value;
  }

  // Moves to the rows behind the heading of a table.
  bool NextRow(std::size_t& row) {
    at_ += row == 0 ? 2 : 1;
    ++row;
    return at_ < lines_.size() && lines_[at_].starts_with("|");
  }

  void CheckWorking(const std::string& example) {
    PutProject(example, {});
    const json results = Results(example, false);
    for (std::size_t row = 0; NextRow(row);) {
      const auto cells = Cells(lines_[at_]);
      ExpectNumber(cells.back(), cells.front(), results);
    }
  }

  std::string Rules(const std::string& example) const {
    const json flags = json::parse(Call({"batch", example, "--json"})).at(0).at("RuleFlags");
    std::string text;
    for (const json& flag : flags) {
      text += fmt::format("{}{}", text.empty() ? "" : " ", flag.get<int>());
    }
    return text;
  }

  // The names that the manual has for the texts below [WARNINGS].
  std::string Warnings(const std::string& example) const {
    static const std::vector<std::pair<std::string, std::string>> kTexts = {
        {"B", "B. Analysis of the KORVA case history data base"},
        {"barrier", "increased when the Barrier Pillar SF is less than 1.5."},
        {"entered arch factor", "was analyzed with the Pressure Arch Factor (Fpa) calculated"},
        {"arch in use", "The Pressure Arch loading model used in KORVA v6"}};
    const auto words = Words(Call({"report", example, "--page", "1", "--model", "traditional"}));
    const std::string page = fmt::format("{}", fmt::join(words, " "));
    std::string names;
    for (const auto& [name, text] : kTexts) {
      if (page.find(text) != std::string::npos) {
        names += (names.empty() ? "" : ", ") + name;
      }
    }
    return names;
  }

  void CheckRows(const std::vector<std::string>& words) {
    const auto firstRow = std::find(words.begin(), words.end(), ":");
    const std::vector<std::string> names(words.begin() + 2, firstRow);
    auto word = firstRow;
    for (std::size_t row = 0; NextRow(row);) {
      ASSERT_NE(word, words.end()) << lines_[at_];
      Changes changes;
      for (++word; word != words.end() && *word != ":"; ++word) {
        if (*word != "-") {
          changes.push_back(Change(*word));
        }
      }
      const auto cells = Cells(lines_[at_]);
      ASSERT_EQ(cells.size(), names.size() + 1);
      PutProject(words.at(1), changes);
      const json results = Results(words.at(1), false);
      for (std::size_t i = 0; i < names.size(); ++i) {
        ExpectNumber(cells[i + 1], names[i], results);
      }
    }
    EXPECT_EQ(word, words.end()) << "a row is missing";
  }

  void CheckTable(const std::vector<std::string>& words) {
    const std::vector<std::string> names(words.begin() + 2, words.end());
    bool laminated = false;
    for (const std::string& name : names) {
      laminated = laminated || name.starts_with("Strond");
    }
    for (std::size_t row = 0; NextRow(row);) {
      const auto cells = Cells(lines_[at_]);
      ASSERT_EQ(cells.size(), names.size());
      Changes changes;
      std::size_t column = 0;
      for (Project ignored; column < names.size() && SetField(ignored, names[column], 0); ++column) {
        changes.emplace_back(names[column], std::stod(cells[column]));
      }
      PutProject(words.at(1), changes);
      const json results = Results(words.at(1), laminated);
      for (; column < names.size(); ++column) {
        if (names[column] == "RULES") {
          EXPECT_EQ(cells[column], Rules(words.at(1))) << lines_[at_];
        } else if (names[column] == "WARNINGS") {
          EXPECT_EQ(cells[column], Warnings(words.at(1))) << lines_[at_];
        } else {
          ExpectNumber(cells[column], names[column], results);
        }
      }
    }
  }

  const std::string name_;
  std::vector<std::string> lines_;
  std::size_t at_ = 0;
  const TempFolder folder_;
};

TEST(Help, QuotesWhatTheCommandComputes) {
  std::map<std::string, int> checks;
  for (const auto& page : fs::directory_iterator(KORVA_HELP)) {
    if (page.path().extension() == ".md") {
      checks[Utf8Of(page.path().stem())] = HelpPage(page.path()).Check();
    }
  }
  for (const char* page : {"tutorial", "examples", "theory-traditional", "oddities", "parameters"}) {
    EXPECT_GT(checks[page], 0) << page;
  }
}

}  // namespace
}  // namespace korva
