#include "files/ProjectFields.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/Text.h"

namespace korva {

namespace {

class FieldReader {
 public:
  FieldReader(FieldCursor& cursor, const FieldLine& line, Project& project)
      : cursor_(cursor), line_(line), p_(project) {}

  void operator()(double Project::*member) const { p_.*member = cursor_.ReadNumber(line_.name); }
  void operator()(float Project::*member) const { p_.*member = cursor_.ReadSingle(line_.name); }
  void operator()(PaddedSingle single) const { (*this)(single.member); }
  void operator()(Centers) const {
    for (int i = 1; i < p_.NumberEntries; ++i) {
      p_.XcutCenters[i] = cursor_.ReadNumber(std::string(line_.name) + " " + std::to_string(i));
    }
  }
  void operator()(PanelLoading Project::*member) const { p_.*member = PanelLoading{ReadWhole()}; }
  void operator()(OverburdenModel Project::*member) const { p_.*member = OverburdenModel{ReadWhole()}; }
  void operator()(int Project::*member) const {
    const int value = ReadWhole();
    p_.*member = value;
    if (member == &Project::NumberEntries) {
      p_.NumberEntries = value == 0 ? 1 : value;
      if (value > kMaxEntries) {
        cursor_.Fail(ErrorNumber::kSubscript, fmt::format("{} of at most {}", line_.name, kMaxEntries),
                     fmt::format("{}", value));
      }
    }
  }

 private:
  int ReadWhole() const { return std::min(cursor_.ReadInteger(line_.name), line_.most); }

  FieldCursor& cursor_;
  const FieldLine& line_;
  Project& p_;
};

}  // namespace

void ReadFieldLine(FieldCursor& cursor, const FieldLine& line, Project& project) {
  std::visit(FieldReader(cursor, line, project), line.member);
}

void ReadProjectHead(FieldCursor& cursor, StoredProject& project) {
  const UnitSystem units = UnitSystem{cursor.ReadInteger("ProjectUnits")};
  project.ProjectUnits = units == kMetric ? kMetric : kEnglish;
  project.ProjectTitle = cursor.ReadLine("ProjectTitle");
  ReadDescription(cursor, project);
}

void ReadDescription(FieldCursor& cursor, StoredProject& project) {
  project.ProjectDescription.clear();
  std::string_view text = cursor.ReadLine(kDescriptionStart);
  if (text == kDescriptionStart) {
    text = cursor.ReadLine("the description");
  }
  int lines = 1;
  while (text != kDescriptionEnd) {
    if (!Trimmed(text).empty()) {
      ++lines;
      project.ProjectDescription.append(text).append(kLineEnd);
    }
    text = cursor.ReadText(kDescriptionEnd);
  }
  project.ProjectDescriptionLines = lines;
}

}  // namespace korva
