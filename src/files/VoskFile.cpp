#include "files/VoskFile.h"

#include <array>

#include "files/ProjectFields.h"

namespace korva {

namespace {

constexpr std::string_view kMagic = "VOSK_103";
constexpr std::string_view kMagicName = "the format of a VOSK project file";
constexpr std::string_view kPanelStart = "##KORVA START##";

// The lines behind the marker. Against the project file ArchFactor stands elsewhere, two lines are not there,
// and the loading condition has no upper bound.
constexpr auto kPanelLines = std::to_array<FieldLine>({
    {"EntryHeight", &Project::EntryHeight},
    {"DepthCover", &Project::DepthCover},
    {"XcutAngle", &Project::XcutAngle},
    {"EntryWidth", &Project::EntryWidth},
    {"XcutSpacing", &Project::XcutSpacing},
    {"NumberEntries", &Project::NumberEntries},
    {"XcutCenters", Centers{}},
    {"CoalStrength", &Project::CoalStrength},
    {"UnitWeight", &Project::UnitWeight},
    {"BreadthAMZ", &Project::BreadthAMZ},
    {"AMZAuto", &Project::AMZAuto},
    {"ArchFactor", &Project::ArchFactor},
    {"ArchAuto", &Project::ArchAuto},
    {"LoadingCondition", &Project::LoadingCondition},
    {"ExtentActiveGob", &Project::ExtentActiveGob},
    {"AbutmentAngleActiveGob", &Project::AbutmentAngleActiveGob},
    {"ExtentFirstGob", &Project::ExtentFirstGob},
    {"AbutmentAngleFirstGob", &Project::AbutmentAngleFirstGob},
    {"BarrierFirstGob", &Project::BarrierFirstGob},
    {"SlabcutFirstGob", &Project::SlabcutFirstGob},
    {"ExtentSecondGob", &Project::ExtentSecondGob},
    {"AbutmentAngleSecondGob", &Project::AbutmentAngleSecondGob},
    {"BarrierSecondGob", &Project::BarrierSecondGob},
    {"SlabcutSecondGob", &Project::SlabcutSecondGob},
    {"RowA", &Project::RowA},
    {"RowB", &Project::RowB},
    {"RowC", &Project::RowC},
    {"RowD", &Project::RowD},
    {"WidthRowC", &Project::WidthRowC},
    {"WidthRowD", &Project::WidthRowD},
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
  for (const FieldLine& line : kPanelLines) {
    ReadFieldLine(cursor, line, project.ProjectInput);
  }
  cursor.NoticeRest();
}

}  // namespace korva
