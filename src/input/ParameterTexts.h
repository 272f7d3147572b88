// The parameters form as plain texts: what its boxes hold, and the way to and from a project record.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/Project.h"
#include "input/FormComputations.h"

namespace korva {

// Texts by the record's fields, check boxes as 0 or 1, options as the index of the one chosen.
struct ParameterTexts {
  std::string EntryHeight;
  std::string DepthCover;
  std::string XcutAngle;
  std::string EntryWidth;
  std::string XcutSpacing;
  std::string NumberEntries;
  IndexedArray<std::string, 1, kMaxRows> XcutCenters;
  std::string CoalStrength;
  std::string UnitWeight;
  std::string BreadthAMZ;
  std::string ArchFactor;
  std::string ExtentActiveGob;
  std::string AbutmentAngleActiveGob;
  std::string ExtentFirstGob;
  std::string AbutmentAngleFirstGob;
  std::string BarrierFirstGob;
  std::string SlabcutFirstGob;
  std::string ExtentSecondGob;
  std::string AbutmentAngleSecondGob;
  std::string BarrierSecondGob;
  std::string SlabcutSecondGob;
  std::string WidthRowC;
  std::string WidthRowD;
  int AMZAuto = 0;
  int ArchAuto = 0;
  int RowA = 0;
  int RowB = 0;
  int RowC = 0;
  int RowD = 0;
  PanelLoading LoadingCondition = PanelLoading::kDevelopmentLoad;
  OverburdenModel CalcMode = kTraditionalModel;

  bool operator==(const ParameterTexts&) const = default;
};

// A box of one 64-bit value: its control, its text and the record's field.
struct ValueField {
  const char* Control;
  std::string ParameterTexts::*Text;
  double Project::*Value;
};
inline constexpr std::array<ValueField, 18> kValueFields = {{
    {"txtEntryHeight", &ParameterTexts::EntryHeight, &Project::EntryHeight},
    {"txtDepthCover", &ParameterTexts::DepthCover, &Project::DepthCover},
    {"txtXcutAngle", &ParameterTexts::XcutAngle, &Project::XcutAngle},
    {"txtEntryWidth", &ParameterTexts::EntryWidth, &Project::EntryWidth},
    {"txtXcutSpacing", &ParameterTexts::XcutSpacing, &Project::XcutSpacing},
    {"txtCoalStrength", &ParameterTexts::CoalStrength, &Project::CoalStrength},
    {"txtUnitWeight", &ParameterTexts::UnitWeight, &Project::UnitWeight},
    {"txtBreadthAMZ", &ParameterTexts::BreadthAMZ, &Project::BreadthAMZ},
    {"txtExtentActiveGob", &ParameterTexts::ExtentActiveGob, &Project::ExtentActiveGob},
    {"txtAbutmentAngleActiveGob", &ParameterTexts::AbutmentAngleActiveGob, &Project::AbutmentAngleActiveGob},
    {"txtExtentFirstGob", &ParameterTexts::ExtentFirstGob, &Project::ExtentFirstGob},
    {"txtAbutmentAngleFirstGob", &ParameterTexts::AbutmentAngleFirstGob, &Project::AbutmentAngleFirstGob},
    {"txtBarrierFirstGob", &ParameterTexts::BarrierFirstGob, &Project::BarrierFirstGob},
    {"txtSlabcutFirstGob", &ParameterTexts::SlabcutFirstGob, &Project::SlabcutFirstGob},
    {"txtExtentSecondGob", &ParameterTexts::ExtentSecondGob, &Project::ExtentSecondGob},
    {"txtAbutmentAngleSecondGob", &ParameterTexts::AbutmentAngleSecondGob, &Project::AbutmentAngleSecondGob},
    {"txtBarrierSecondGob", &ParameterTexts::BarrierSecondGob, &Project::BarrierSecondGob},
    {"txtSlabcutSecondGob", &ParameterTexts::SlabcutSecondGob, &Project::SlabcutSecondGob},
}};

// A box of one 32-bit value.
struct SingleField {
  const char* Control;
  std::string ParameterTexts::*Text;
  float Project::*Value;
};
inline constexpr std::array<SingleField, 3> kSingleFields = {{
    {"txtArchFactor", &ParameterTexts::ArchFactor, &Project::ArchFactor},
    {"txtWidthC", &ParameterTexts::WidthRowC, &Project::WidthRowC},
    {"txtWidthD", &ParameterTexts::WidthRowD, &Project::WidthRowD},
}};

// A check box.
struct FlagField {
  const char* Control;
  int ParameterTexts::*Flag;
  int Project::*Value;
};
inline constexpr std::array<FlagField, 6> kFlagFields = {{
    {"chkAMZ", &ParameterTexts::AMZAuto, &Project::AMZAuto},
    {"chkArch", &ParameterTexts::ArchAuto, &Project::ArchAuto},
    {"chkRowA", &ParameterTexts::RowA, &Project::RowA},
    {"chkRowB", &ParameterTexts::RowB, &Project::RowB},
    {"chkRowC", &ParameterTexts::RowC, &Project::RowC},
    {"chkRowD", &ParameterTexts::RowD, &Project::RowD},
}};

// The texts that the form shows for a project: numbers in their general form, strength and unit weight with
// at most two decimals.
ParameterTexts TextsOfProject(const Project& project);

// Puts every field into `project`; only the centers between the entries, the others stay.
void StoreParameters(const ParameterTexts& texts, Project& project);

// Whether a field differs from the record. The arch factor is not looked at, so that a change of it alone
// counts as none.
bool ParametersChanged(const ParameterTexts& texts, const Project& project);

// The number of entries, rounded half to even; 0 for more than a 16-bit number holds.
int EntriesOf(const ParameterTexts& texts);

// The fields that the form computes with.
ParameterFields FieldsOfTexts(const ParameterTexts& texts, UnitSystem units);

}  // namespace korva
