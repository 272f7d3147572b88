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

// A line without its end, and the end: LF, CR LF or nothing.
struct Line {
  std::string_view Text;
  std::string_view End;
};

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
    std::size_t shown = length;
    while (shown > 0 && (text[shown - 1] == '\n' || text[shown - 1] == '\r')) {
      --shown;
    }
    lines.push_back({text.substr(0, shown), text.substr(shown, length - shown)});
    text.remove_prefix(length);
  }
  return lines;
}

// The programs that a line of the list gives project files, or nothing if it is about something else.
std::optional<std::vector<std::string>> ProgramsOf(std::string_view line) {
  const auto equals = line.find('=');
  if (equals == std::string_view::npos || Trimmed(line.substr(0, equals)) != kProjectType) {
    return std::nullopt;
  }
  std::vector<std::string> programs;
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

std::string DefaultLine(const std::vector<std::string>& programs) {
  return fmt::format("{}={};", kProjectType, fmt::join(programs, ";"));
}

bool IsGroup(std::string_view line) {
  return Trimmed(line).starts_with('[');
}

// The programs that a list gives project files; the last line about them counts.
std::vector<std::string> DefaultProgramsOf(std::string_view list) {
  bool inside = false;
  std::vector<std::string> programs;
  for (const Line& line : LinesOf(list)) {
    inside = IsGroup(line.Text) ? Trimmed(line.Text) == kDefaultsGroup : inside;
    if (const auto found = inside ? ProgramsOf(line.Text) : std::nullopt; found && !found->empty()) {
      programs = *found;
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

bool CanStandInEntry(std::string_view program) {
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
  bool inside = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (IsGroup(lines[i].Text)) {
      inside = Trimmed(lines[i].Text) == kDefaultsGroup;
      head = inside ? i : head;
    } else if (inside && ProgramsOf(lines[i].Text)) {
      entry = i;
    }
  }
  const std::string_view end = !lines.empty() && lines.front().End == "\r\n" ? "\r\n" : "\n";
  const std::string own(kProgramEntry);
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (entry == i) {
      auto programs = *ProgramsOf(lines[i].Text);
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
  const auto programs = DefaultProgramsOf(list);
  return !programs.empty() && programs.front() != kProgramEntry;
}

std::string WithDefaultProgramsOf(std::string_view before, std::string_view list) {
  const auto earlier = DefaultProgramsOf(before);
  std::string text;
  bool inside = false;
  for (const Line& line : LinesOf(list)) {
    inside = IsGroup(line.Text) ? Trimmed(line.Text) == kDefaultsGroup : inside;
    const auto programs = inside ? ProgramsOf(line.Text) : std::nullopt;
    if (programs && !programs->empty() && programs->front() == kProgramEntry) {
      text.append(DefaultLine(earlier)).append(line.End);
    } else {
      Append(text, line);
    }
  }
  return text;
}

std::string WithoutDefaultProgram(std::string_view list) {
  std::string text;
  bool inside = false;
  for (const Line& line : LinesOf(list)) {
    if (IsGroup(line.Text)) {
      inside = Trimmed(line.Text) == kDefaultsGroup;
    }
    auto programs = inside ? ProgramsOf(line.Text) : std::nullopt;
    if (!programs || std::erase(*programs, std::string(kProgramEntry)) == 0) {
      Append(text, line);
    } else if (!programs->empty()) {
      text.append(DefaultLine(*programs)).append(line.End);
    }
  }
  return text;
}

}  // namespace korva
