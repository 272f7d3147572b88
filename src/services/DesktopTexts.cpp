#include "services/DesktopTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "core/Encoding.h"
#include "core/Text.h"

namespace korva {

namespace {

constexpr std::string_view kDefaultsGroup = "[Default Applications]";

// What a desktop takes apart or changes in a command unless it stands in quotes.
constexpr std::string_view kReserved = " \"'\\><~|&;$*?#()`";

using Programs = std::vector<std::string>;

// A line of the list without its end, the end (LF, CR LF or nothing), and the programs that it gives project
// files; nothing if it is about something else.
struct Line {
  std::string_view Text;
  std::string_view End;
  std::optional<Programs> Defaults;
};

bool IsGroup(std::string_view line) {
  return Trimmed(line).starts_with('[');
}

std::optional<Programs> ProgramsOf(std::string_view line) {
  const auto equals = line.find('=');
  if (equals == std::string_view::npos || Trimmed(line.substr(0, equals)) != kProjectType) {
    return std::nullopt;
  }
  Programs programs;
  std::string_view rest = line.substr(equals + 1);
  while (!rest.empty()) {
    const auto end = std::min(rest.find(';'), rest.size());
    if (const auto name = Trimmed(rest.substr(0, end)); !name.empty()) {
      programs.emplace_back(name);
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return programs;
}

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  bool inside = false;  // the group of default programs
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
    std::size_t shown = length;
    while (shown > 0 && (text[shown - 1] == '\n' || text[shown - 1] == '\r')) {
      --shown;
    }
    const std::string_view line = text.substr(0, shown);
    inside = IsGroup(line) ? Trimmed(line) == kDefaultsGroup : inside;
    lines.push_back({line, text.substr(shown, length - shown), inside ? ProgramsOf(line) : std::nullopt});
    text.remove_prefix(length);
  }
  return lines;
}

std::string DefaultLine(const Programs& programs) {
  return fmt::format("{}={};", kProjectType, fmt::join(programs, ";"));
}

// The programs that a list gives project files; the last line about them counts.
Programs DefaultProgramsOf(std::string_view list) {
  Programs programs;
  for (const Line& line : LinesOf(list)) {
    if (line.Defaults && !line.Defaults->empty()) {
      programs = *line.Defaults;
    }
  }
  return programs;
}

// A text as an entry holds it.
std::string EntryText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    escaped.append(c == '\\' ? 2 : 1, c);
  }
  return escaped;
}

void Append(std::string& text, const Line& line) {
  text.append(line.Text).append(line.End);
}

}  // namespace

bool CanNameProgram(std::string_view program) {
  return IsUtf8(program) && std::none_of(program.begin(), program.end(),
                                         [](char c) { return c == '=' || c == '%' || IsControl(c); });
}

std::string ExecValue(std::string_view program) {
  if (program.find_first_of(kReserved) == std::string_view::npos) {
    return fmt::format("{} %f", program);
  }
  std::string quoted;
  for (const char c : program) {
    // Escaped for the command, and that backslash once more for the entry.
    if (c == '"' || c == '`' || c == '$') {
      quoted += R"(\\)";
    } else if (c == '\\') {
      quoted += R"(\\\)";
    }
    quoted += c;
  }
  return fmt::format("\"{}\" %f", quoted);
}

std::string ProgramEntryText(std::string_view program) {
  return fmt::format(
      "[Desktop Entry]\n"
      "Type=Application\n"
      "Name=KORVA-STROND\n"
      "GenericName=Coal Pillar Stability\n"
      "Comment=Judge the stability of coal pillars in room-and-pillar retreat mining\n"
      "TryExec={}\n"
      "Exec={}\n"
      "Icon={}\n"
      "Terminal=false\n"
      "Categories=Science;Engineering;Geology;\n"
      "Keywords=mine;mining;coal;pillar;barrier;gob;\n"
      "MimeType={};\n"
      "StartupNotify=true\n"
      "StartupWMClass=korva-strond\n",
      EntryText(program), ExecValue(program), kProgramIcon, kProjectType);
}

std::string ProjectTypeText(std::string_view extension, int weight) {
  std::string globs;
  std::vector<std::string> patterns = {std::string(extension), LowerCase(extension)};
  patterns.erase(std::unique(patterns.begin(), patterns.end()), patterns.end());
  for (const std::string& pattern : patterns) {
    globs += fmt::format("    <glob weight=\"{}\" pattern=\"*.{}\"/>\n", weight, pattern);
  }
  return fmt::format(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
      "  <mime-type type=\"{}\">\n"
      "    <comment>KORVA-STROND project</comment>\n"
      "    <icon name=\"{}\"/>\n"
      "    <sub-class-of type=\"text/plain\"/>\n"
      "{}"
      "  </mime-type>\n"
      "</mime-info>\n",
      kProjectType, kProjectTypeIcon, globs);
}

std::string WithDefaultProgram(std::string_view list) {
  const std::vector<Line> lines = LinesOf(list);
  std::optional<std::size_t> head;
  std::optional<std::size_t> entry;  // the last one counts
  for (std::size_t i = 0; i < lines.size(); ++i) {
    head = Trimmed(lines[i].Text) == kDefaultsGroup ? i : head;
    entry = lines[i].Defaults ? i : entry;
  }
  const std::string_view end = !lines.empty() && lines.front().End == "\r\n" ? "\r\n" : "\n";
  const std::string own(kProgramEntry);
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (entry == i) {
      Programs programs = *lines[i].Defaults;
      std::erase(programs, own);
      programs.insert(programs.begin(), own);
      text.append(DefaultLine(programs)).append(lines[i].End);
      continue;
    }
    Append(text, lines[i]);
    if (!entry && head == i) {
      text.append(lines[i].End.empty() ? end : "").append(DefaultLine({own})).append(end);
    }
  }
  if (!head) {
    text.append(text.empty() || text.back() == '\n' ? "" : end).append(text.empty() ? "" : end);
    text.append(kDefaultsGroup).append(end).append(DefaultLine({own})).append(end);
  }
  return text;
}

std::vector<std::string> ListsOfDesktops(std::string_view desktops) {
  std::vector<std::string> lists;
  while (!desktops.empty()) {
    const auto end = std::min(desktops.find(':'), desktops.size());
    if (const std::string name = LowerCase(desktops.substr(0, end)); !name.empty()) {
      lists.push_back(name + "-mimeapps.list");
    }
    desktops.remove_prefix(std::min(end + 1, desktops.size()));
  }
  return lists;
}

bool PrefersAnotherProgram(std::string_view list) {
  const Programs programs = DefaultProgramsOf(list);
  return !programs.empty() && programs.front() != kProgramEntry;
}

std::string WithDefaultProgramsOf(std::string_view before, std::string_view list) {
  const Programs earlier = DefaultProgramsOf(before);
  std::string text;
  for (const Line& line : LinesOf(list)) {
    if (line.Defaults && !line.Defaults->empty() && line.Defaults->front() == kProgramEntry) {
      text.append(DefaultLine(earlier)).append(line.End);
    } else {
      Append(text, line);
    }
  }
  return text;
}

std::string WithoutDefaultProgram(std::string_view list) {
  std::string text;
  for (Line& line : LinesOf(list)) {
    if (!line.Defaults || std::erase(*line.Defaults, std::string(kProgramEntry)) == 0) {
      Append(text, line);
    } else if (!line.Defaults->empty()) {
      text.append(DefaultLine(*line.Defaults)).append(line.End);
    }
  }
  return text;
}

}  // namespace korva
