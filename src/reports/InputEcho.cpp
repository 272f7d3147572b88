// Page 0: the inputs as they went into the run.
#include <fmt/format.h>

#include "core/NumberText.h"
#include "core/Tables.h"
#include "core/Version.h"
#include "reports/PageText.h"
#include "reports/Reports.h"

namespace korva {

namespace {

constexpr std::size_t kLabelWidth = 55;
constexpr std::size_t kConditionWidth = 35;
constexpr std::string_view kDegrees = " (deg)";

class EchoPage {
 public:
  EchoPage(const StoredProject& project, const Project& calc)
      : stored_(project), p_(calc), units_(project.ProjectUnits) {}

  void Head(const std::string& fileName, const OptionSettings& options) {
    page_.Line("KORVA-STROND module build: ", ProgramVersionText(true));
    page_.Text(WrapText("Project File: " + fileName, kPageWidth));
    std::string_view stress = UnitOf(options.OutputStrUnits).Label;
    std::string_view load = UnitOf(options.OutputStrGradUnits).Label;
    if (units_ == kMetric) {
      stress = UnitLabel(UnitKind::kMetricStress, units_);
      load = UnitLabel(UnitKind::kMetricLoad, units_);
    }
    page_.Line("Units: ", length_, stress, load).Line();
  }

  void Texts() {
    page_.Line("[PROJECT TITLE]").Line(stored_.ProjectTitle).Line();
    page_.Line("[PROJECT DESCRIPTION]").Line(stored_.ProjectDescription).Line();
  }

  void Geometry() {
    page_.Line("[DEVELOPMENT GEOMETRY PARAMETERS]");
    Row("Entry Height", p_.EntryHeight, length_);
    Row("Depth of Cover", p_.DepthCover, length_);
    Row("Crosscut Angle", p_.XcutAngle, kDegrees);
    Row("Entry Width", p_.EntryWidth, length_);
    TextRow("Number of Entries", fmt::format("{}", p_.NumberEntries));
    Row("Crosscut Spacing", p_.XcutSpacing, length_);
    for (int i = 1; i <= PillarRows(p_); ++i) {
      Row(fmt::format("Center to Center Distance #{}", i), p_.XcutCenters[i], length_);
    }
  }

  void Defaults() {
    page_.Line("[DEFAULT PARAMETERS]");
    Row("In Situ Coal Strength", p_.CoalStrength, UnitLabel(UnitKind::kStrength, units_));
    Row("Unit Weight of Overburden", p_.UnitWeight, UnitLabel(UnitKind::kUnitWeight, units_));
    Row("Breadth of AMZ", p_.BreadthAMZ, length_);
    page_.Line(IsSet(p_.AMZAuto) ? "AMZ set automatically" : "AMZ set manualy");
    TextRow("Pressure Arch Factor", GeneralText(p_.ArchFactor));
    page_.Line(IsSet(p_.ArchAuto) ? "Pressure Arch Factor set automatically"
                                  : "Pressure Arch Factor set manualy");
    TextRow("Calculation Mode",
            UsesLaminated(p_.CalcMode) ? "KORVA-STROND Model" : "KORVA Traditional Model");
  }

  // The gob sections by the record's own condition; 0 and 4 have none.
  void Retreat() {
    const auto condition = static_cast<std::size_t>(p_.LoadingCondition);
    page_.Line("[RETREAT MINING PARAMETERS]");
    page_.Line(DotPad("Loading Condition", kConditionWidth), condition < LoadingConditionTitles.size()
                                                                 ? LoadingConditionTitles[condition]
                                                                 : std::string_view{});
    page_.Line();
    if (p_.LoadingCondition <= PanelLoading::kWithBothSideGobs) {
      if (HasActiveGob(p_.LoadingCondition)) {
        ActiveGob();
      }
      if (HasFirstSideGob(p_.LoadingCondition)) {
        FirstGob();
      }
      if (HasSecondSideGob(p_.LoadingCondition)) {
        SecondGob();
      }
    }
    page_.Line().Line();
  }

  std::string Take() { return page_.Take(); }

 private:
  void TextRow(std::string_view label, std::string_view value, std::string_view unit = {}) {
    page_.Line(DotPad(label, kLabelWidth), value, unit);
  }
  void Row(std::string_view label, double value, std::string_view unit) {
    TextRow(label, GeneralText(value), unit);
  }
  void FlagRow(std::string_view label, int flag) { TextRow(label, NoYes[IsSet(flag) ? 1 : 0]); }

  void ActiveGob() {
    page_.Line("[Active Gob]");
    Row("Extent of Active Gob", p_.ExtentActiveGob, length_);
    Row("Abutment Angle of Active Gob", p_.AbutmentAngleActiveGob, kDegrees);
    FlagRow("Leave pillar Row 'A' in place", p_.RowA);
    FlagRow("Leave pillar Row 'B' in place", p_.RowB);
    page_.Line();
  }

  void FirstGob() {
    page_.Line("[First Gob]");
    Row("Extent of First Gob", p_.ExtentFirstGob, length_);
    Row("Abutment Angle of First Gob", p_.AbutmentAngleFirstGob, kDegrees);
    Row("Barrier Pillar Width of First Gob", p_.BarrierFirstGob, length_);
    Row("Depth of Slab Cut in Barrier Pillar of First Gob", p_.SlabcutFirstGob, length_);
    FlagRow("Leave pillar Row 'C' in place", p_.RowC);
    if (IsSet(p_.RowC)) {
      TextRow("Width of pillars in row 'C'", GeneralText(p_.WidthRowC), length_);
    }
  }

  void SecondGob() {
    page_.Line("[Second Gob]");
    Row("Extent of Second Gob", p_.ExtentSecondGob, length_);
    Row("Abutment Angle of Second Gob", p_.AbutmentAngleSecondGob, kDegrees);
    Row("Barrier Pillar Width of Second Gob", p_.BarrierSecondGob, length_);
    Row("Depth of Slab Cut in Barrier Pillar of Second Gob", p_.SlabcutSecondGob, length_);
    FlagRow("Leave pillar Row 'D' in place", p_.RowD);
    if (IsSet(p_.RowD)) {
      TextRow("Width of pillars in row 'D'", GeneralText(p_.WidthRowD), length_);
    }
  }

  const StoredProject& stored_;
  const Project& p_;
  UnitSystem units_;
  std::string_view length_ = UnitLabel(UnitKind::kLength, units_);
  PageText page_;
};

}  // namespace

std::string InputEcho(const StoredProject& project, const Project& calc, const std::string& fileName,
                      const OptionSettings& options) {
  EchoPage page(project, calc);
  if (options.PrintModuleHeader) {
    page.Head(fileName, options);
  }
  page.Texts();
  page.Geometry();
  page.Defaults();
  page.Retreat();
  return page.Take();
}

}  // namespace korva
