#include "files/ProjectFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/ProjectFields.h"

namespace korva {

namespace {

struct Magic {
  std::string_view text;
  int format;
};

// In the order in which they are tried; the first one is written.
constexpr std::array<Magic, 5> FileMagics = {
    {{"KORVA_603", 54}, {"KORVA_602", 53}, {"KORVA_601", 52}, {"KORVA_501", 51}, {"KORVA_500", 50}}};

constexpr std::string_view kMagicName = "the format of a project file";
constexpr int kLastLoadingCondition = static_cast<int>(PanelLoading::kWithBothSideGobs);

constexpr auto kModelLines = std::to_array<FieldLine>({
    {"ArchAuto", &Project::ArchAuto, 53},
    {"LoadingCondition", &Project::LoadingCondition, 50, kLastLoadingCondition},
    {"LoadingConditionAux", &Project::LoadingConditionAux, 51},
    {"ArchFactor", PaddedSingle{&Project::ArchFactor}, 52},
    {"CalcMode", &Project::CalcMode, 54},
});

// The lines after the description. Reader and writer both walk them; further ones stand at their end, in a
// table of this file.
constexpr std::array<FieldLines, 3> kPanelLines = {kGeometryLines, kModelLines, kGobLines};

class FieldWriter {
 public:
  FieldWriter(std::string& text, const Project& project) : text_(text), p_(project) {}

  void operator()(double Project::*member) const { Line(GeneralText(p_.*member)); }
  void operator()(float Project::*member) const { Line(GeneralText(p_.*member)); }
  void operator()(PaddedSingle single) const { Line(PaddedText(p_.*single.member)); }
  template <class Whole>
  void operator()(Whole Project::*member) const {
    Line(PaddedText(static_cast<int>(p_.*member)));
  }
  void operator()(Centers) const {
    for (int i = 1; i < p_.NumberEntries; ++i) {
      Line(GeneralText(p_.XcutCenters[i]));
    }
  }

 private:
  void Line(const std::string& value) const { text_.append(value).append(kLineEnd); }

  std::string& text_;
  const Project& p_;
};

// Whether a reader that takes the description off `text` stops just at its end.
bool DescriptionReadsBack(std::string_view text) {
  std::vector<FileNotice> notices;
  FieldCursor cursor(text, {}, notices);
  StoredProject ignored;
  ReadDescription(cursor, ignored);
  return cursor.AtEnd();
}

}  // namespace

bool HasProjectExtension(std::string_view name) {
  const std::string ending = "." + LowerCase(kProjectExtension);
  return name.size() > ending.size() && LowerCase(name).ends_with(ending);
}

bool IsProjectName(std::string_view name) {
  return !name.starts_with('.') && HasProjectExtension(name);
}

std::optional<int> DetectProjectFormat(std::string_view text, const std::string& fileName) {
  std::vector<FileNotice> notices;
  const std::string_view first = FieldCursor(text, fileName, notices).ReadText(kMagicName);
  const auto* magic =
      std::find_if(FileMagics.begin(), FileMagics.end(), [first](const Magic& m) { return m.text == first; });
  return magic == FileMagics.end() ? std::nullopt : std::optional(magic->format);
}

void ReadProject(std::string_view text, const std::string& fileName, int version, StoredProject& project,
                 std::vector<FileNotice>& notices) {
  FieldCursor cursor(text, fileName, notices);
  cursor.ReadText(kMagicName);
  ReadProjectHead(cursor, project);
  for (const FieldLines lines : kPanelLines) {
    for (const FieldLine& line : lines) {
      if (version >= line.since) {
        ReadFieldLine(cursor, line, project.ProjectInput);
      }
    }
  }
  cursor.NoticeRest();
}

std::string ComposeProject(const StoredProject& project) {
  if (project.ProjectTitle.find_first_of("\r\n") != std::string::npos) {
    throw RuntimeError(ErrorNumber::kInvalidCall, "the project title has more than one line");
  }
  std::string description;
  for (const std::string_view line :
       {kDescriptionStart, std::string_view(project.ProjectDescription), kDescriptionEnd}) {
    description.append(line).append(kLineEnd);
  }
  if (!DescriptionReadsBack(description)) {
    throw RuntimeError(ErrorNumber::kInvalidCall,
                       fmt::format("the project description holds the line \"{}\", which ends it in the file",
                                   kDescriptionEnd));
  }

  std::string text;
  text.append(FileMagics.front().text).append(kLineEnd);
  text.append(PaddedText(static_cast<int>(project.ProjectUnits))).append(kLineEnd);
  text.append(project.ProjectTitle).append(kLineEnd);
  text.append(description);
  for (const FieldLines lines : kPanelLines) {
    for (const FieldLine& line : lines) {
      std::visit(FieldWriter(text, project.ProjectInput), line.member);
    }
  }
  return text;
}

}  // namespace korva
