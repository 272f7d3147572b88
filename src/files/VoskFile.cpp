#include "files/VoskFile.h"

#include <array>

#include "files/ProjectFields.h"

namespace korva {

namespace {

constexpr std::string_view kMagic = "VOSK_103";
constexpr std::string_view kMagicName = "the format of a VOSK project file";
constexpr std::string_view kPanelStart = "##KORVA START##";

// Against the project file ArchFactor stands elsewhere, two lines are not there, and the loading condition
// has no upper bound.
constexpr auto kModelLines = std::to_array<FieldLine>({
    {"ArchFactor", &Project::ArchFactor},
    {"ArchAuto", &Project::ArchAuto},
    {"LoadingCondition", &Project::LoadingCondition},
});

}  // namespace

bool DetectVoskFormat(std::string_view text, const std::string& fileName) {
  std::vector<FileNotice> notices;
  return FieldCursor(text, fileName, notices).ReadText(kMagicName) == kMagic;
}

void ReadVoskProject(std::string_view text, const std::string& fileName, StoredProject& project,
                     std::vector<FileNotice>& notices) {
  FieldCursor cursor(text, fileName, notices);
  cursor.ReadText(kMagicName);
  ReadProjectHead(cursor, project);
  while (cursor.ReadLine(kPanelStart) != kPanelStart) {
  }
  for (const FieldLines lines :
       {FieldLines(kGeometryLines), FieldLines(kModelLines), FieldLines(kGobLines)}) {
    for (const FieldLine& line : lines) {
      ReadFieldLine(cursor, line, project.ProjectInput);
    }
  }
  cursor.NoticeRest();
}

}  // namespace korva
