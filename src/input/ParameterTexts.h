// The parameters form as plain texts: what its boxes hold, and the way to and from a project record.
#pragma once

#include <array>
#include <string>

#include "core/Project.h"
#include "input/ParameterTable.h"

namespace korva {

// Texts by the rows of the table, check boxes, options as the value of the one chosen.
struct ParameterTexts {
  std::array<std::string, kNumberFields.size()> Numbers;
  std::array<bool, kFlagFields.size()> Flags{};
  std::string NumberEntries;
  IndexedArray<std::string, 1, kMaxRows> XcutCenters;
  PanelLoading LoadingCondition = PanelLoading::kDevelopmentLoad;
  OverburdenModel CalcMode = kTraditionalModel;

  // By the record's member.
  std::string& operator[](NumberIndex field) { return Numbers[field.At]; }
  const std::string& operator[](NumberIndex field) const { return Numbers[field.At]; }
  bool& operator[](FlagIndex field) { return Flags[field.At]; }
  bool operator[](FlagIndex field) const { return Flags[field.At]; }

  bool operator==(const ParameterTexts&) const = default;
};

// The texts that the form shows for a project.
ParameterTexts TextsOfProject(const Project& project);

// Puts every field into `project`; only the centers between the entries, the others stay.
void StoreParameters(const ParameterTexts& texts, Project& project);

// Whether a field differs from the record. The arch factor is not looked at, so that a change of it alone
// counts as none.
bool ParametersChanged(const ParameterTexts& texts, const Project& project);

// The number of entries, rounded half to even; 0 for more than a 16-bit number holds.
int EntriesOf(const ParameterTexts& texts);

// What a field takes, in words, with the value of the case history data base.
std::string AcceptedText(const NumberField& field);

}  // namespace korva
