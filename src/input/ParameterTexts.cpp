#include "input/ParameterTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/Format.h"
#include "core/NumberText.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

// As FieldNumber: what lies beyond the range of the number gives the largest one.
float SingleOf(const std::string& text) {
  constexpr auto kMost = static_cast<double>(std::numeric_limits<float>::max());
  return static_cast<float>(std::clamp(FieldNumber(text), -kMost, kMost));
}

std::string ShownText(const NumberField& field, const Project& project) {
  return std::visit(
      [&](auto member) {
        const auto value = project.*member;
        return field.Pattern.empty() ? GeneralText(value) : Format(static_cast<double>(value), field.Pattern);
      },
      field.Member);
}

// Indices of the centers between `entries` entries that the form has boxes for.
int LastCenter(int entries) {
  return std::min(entries - 1, kMaxRows);
}

}  // namespace

ParameterTexts TextsOfProject(const Project& project) {
  ParameterTexts texts;
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    texts.Numbers[i] = ShownText(kNumberFields[i], project);
  }
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    texts.Flags[i] = project.*kFlagFields[i].Member != 0;
  }
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
  return std::fabs(entries) <= std::numeric_limits<std::int16_t>::max() ? static_cast<int>(entries) : 0;
}

std::string AcceptedText(const NumberField& field) {
  const AcceptedRange& range = field.Range;
  std::string text;
  if (range.Words != nullptr) {
    text = range.Words;
  } else if (std::isfinite(range.Greatest)) {
    const bool angle = range.Greatest == kGreatestAngle;
    text = fmt::format("{} to {}{}", range.Least, range.Greatest, angle ? " degrees" : "");
  } else {
    text =
        range.IncludesLeast ? fmt::format("{} or more", range.Least) : fmt::format("above {}", range.Least);
  }
  if (const DataBaseValue* usual = field.DataBase) {
    text += fmt::format("; the data base used {}", usual->English);
    if (field.Unit) {
      text += fmt::format(" {} ({} {})", BareUnit(UnitLabel(*field.Unit, kEnglish)), usual->Metric,
                          BareUnit(UnitLabel(*field.Unit, kMetric)));
    }
  }
  return text;
}

void StoreParameters(const ParameterTexts& texts, Project& project) {
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    if (const auto* value = std::get_if<double Project::*>(&kNumberFields[i].Member)) {
      project.** value = FieldNumber(texts.Numbers[i]);
    } else {
      project.*std::get<float Project::*>(kNumberFields[i].Member) = SingleOf(texts.Numbers[i]);
    }
  }
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    project.*kFlagFields[i].Member = texts.Flags[i] ? 1 : 0;
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

}  // namespace korva
