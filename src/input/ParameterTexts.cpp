#include "input/ParameterTexts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/Format.h"
#include "core/NumberText.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

constexpr std::string_view kShortNumber = "#.##";

// As FieldNumber: what lies beyond the range of the number gives the largest one.
float SingleOf(const std::string& text) {
  constexpr auto kMost = static_cast<double>(std::numeric_limits<float>::max());
  return static_cast<float>(std::clamp(FieldNumber(text), -kMost, kMost));
}

// Indices of the centers between `entries` entries that the form has boxes for.
int LastCenter(int entries) {
  return std::min(entries - 1, kMaxRows);
}

}  // namespace

ParameterTexts TextsOfProject(const Project& project) {
  ParameterTexts texts;
  for (const ValueField& field : kValueFields) {
    texts.*field.Text = GeneralText(project.*field.Value);
  }
  for (const SingleField& field : kSingleFields) {
    texts.*field.Text = GeneralText(project.*field.Value);
  }
  for (const FlagField& field : kFlagFields) {
    texts.*field.Flag = project.*field.Value != 0 ? 1 : 0;
  }
  texts.CoalStrength = Format(project.CoalStrength, kShortNumber);
  texts.UnitWeight = Format(project.UnitWeight, kShortNumber);
  texts.NumberEntries = std::to_string(project.NumberEntries);
  for (int i = 1; i <= kMaxRows; ++i) {
    texts.XcutCenters[i] = GeneralText(project.XcutCenters[i]);
  }
  texts.LoadingCondition = project.LoadingCondition;
  texts.CalcMode = project.CalcMode;
  return texts;
}

int EntriesOf(const ParameterTexts& texts) {
  const double entries = std::nearbyint(FieldNumber(texts.NumberEntries));
  return std::fabs(entries) <= 32767 ? static_cast<int>(entries) : 0;
}

void StoreParameters(const ParameterTexts& texts, Project& project) {
  for (const ValueField& field : kValueFields) {
    project.*field.Value = FieldNumber(texts.*field.Text);
  }
  for (const SingleField& field : kSingleFields) {
    project.*field.Value = SingleOf(texts.*field.Text);
  }
  for (const FlagField& field : kFlagFields) {
    project.*field.Value = texts.*field.Flag;
  }
  project.NumberEntries = EntriesOf(texts);
  for (int i = 1; i <= LastCenter(project.NumberEntries); ++i) {
    project.XcutCenters[i] = FieldNumber(texts.XcutCenters[i]);
  }
  project.LoadingCondition = texts.LoadingCondition;
  project.CalcMode = texts.CalcMode;
}

bool ParametersChanged(const ParameterTexts& texts, const Project& project) {
  Project entered = project;
  StoreParameters(texts, entered);
  entered.ArchFactor = project.ArchFactor;
  for (int i = LastCenter(project.NumberEntries) + 1; i <= kMaxRows; ++i) {
    entered.XcutCenters[i] = project.XcutCenters[i];
  }
  return !(entered == project);
}

ParameterFields FieldsOfTexts(const ParameterTexts& texts, UnitSystem units) {
  ParameterFields fields;
  fields.DepthCover = FieldNumber(texts.DepthCover);
  fields.XcutAngle = FieldNumber(texts.XcutAngle);
  fields.EntryWidth = FieldNumber(texts.EntryWidth);
  fields.XcutSpacing = FieldNumber(texts.XcutSpacing);
  fields.NumberEntries = EntriesOf(texts);
  fields.BreadthAMZ = FieldNumber(texts.BreadthAMZ);
  fields.ProjectUnits = units;
  for (int i = 1; i <= kMaxRows; ++i) {
    fields.XcutCenters[i] = FieldNumber(texts.XcutCenters[i]);
  }
  return fields;
}

}  // namespace korva
