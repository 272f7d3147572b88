#include "commands/ProjectSummary.h"

#include <fmt/format.h>

#include "core/Format.h"
#include "core/NumberText.h"
#include "core/Tables.h"
#include "core/Text.h"
#include "input/FormNotices.h"
#include "input/ParameterTable.h"

namespace korva {

namespace {

std::string WithUnit(double value, UnitKind kind, UnitSystem units) {
  return fmt::format("{} {}", GeneralText(value), BareUnit(UnitLabel(kind, units)));
}

// The title of a loading condition as a sentence: "One active retreat section".
std::string ConditionName(PanelLoading condition) {
  const auto index = static_cast<std::size_t>(condition);
  if (index >= LoadingConditionTitles.size()) {
    return {};
  }
  std::string name(LoadingConditionTitles[index]);
  for (std::size_t i = 1; i < name.size(); ++i) {
    name[i] = LowerCase(name[i]);
  }
  return name;
}

bool SameInputs(const Korva& korva) {
  return korva.LastRun->Input == korva.Stored.ProjectInput &&
         korva.LastRun->Units == korva.Stored.ProjectUnits;
}

}  // namespace

std::vector<SummaryRow> KeyInputs(const StoredProject& stored) {
  const Project& project = stored.ProjectInput;
  const auto row = [&](NumberIndex field) {
    const NumberField& known = RowOf(field);
    return SummaryRow{known.Caption, WithUnit(project.*std::get<double Project::*>(known.Member), *known.Unit,
                                              stored.ProjectUnits)};
  };
  return {row(&Project::DepthCover),   row(&Project::EntryHeight),
          row(&Project::EntryWidth),   {kEntriesCaption, std::to_string(project.NumberEntries)},
          row(&Project::XcutSpacing),  {"Crosscut angle", GeneralText(project.XcutAngle) + " deg"},
          row(&Project::CoalStrength), {"Loading condition", ConditionName(project.LoadingCondition)}};
}

FactorSummary LastFactors(const Korva& korva) {
  FactorSummary summary;
  if (!korva.LastRun) {
    return summary;
  }
  const RunSummary& run = *korva.LastRun;
  summary.OutOfDate = !SameInputs(korva);
  summary.Columns = {"Mining zone"};
  for (int side = 0; side < run.SideGobs; ++side) {
    summary.Columns.push_back(fmt::format("{} barrier", FirstSecond.at(static_cast<std::size_t>(side))));
  }
  const auto shown = [](const std::string& factor) { return factor.empty() ? "\u2013" : factor; };
  for (const FactorLine& line : run.Factors) {
    const std::size_t title = (line.Laminated ? 2 : 0) + (line.Retreat ? 1 : 0);
    FactorSummary::Row& row = summary.Rows.emplace_back();
    row.Caption = ModelStageTitles.at(title);
    row.Values = {shown(line.Zone)};
    for (int side = 0; side < run.SideGobs; ++side) {
      row.Values.push_back(shown(line.Barriers.at(static_cast<std::size_t>(side))));
    }
  }
  return summary;
}

std::vector<std::string> NoticeTexts(const std::vector<FileNotice>& notices) {
  std::vector<std::string> texts;
  for (const FileNotice& notice : notices) {
    if (notice.kind != FileNoticeKind::kNoLineEnd) {
      texts.push_back(fmt::format("Line {} of the file: {}", notice.line, notice.text));
    }
  }
  return texts;
}

std::string ProjectRemark(const Korva& korva) {
  if (korva.ProjectEmpty) {
    return {};
  }
  const auto odd = NoticeTexts(korva.FileNotices);
  if (!odd.empty()) {
    return odd.front();
  }
  if (korva.LastRun && SameInputs(korva)) {
    const auto notices = FormNotices(korva.Stored.ProjectInput);
    if (!notices.empty()) {
      return "The input form would refuse this: " + notices.front().Text;
    }
  }
  return {};
}

}  // namespace korva
