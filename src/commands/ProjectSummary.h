// What the main window tells about the open project at a glance.
#pragma once

#include <string>
#include <vector>

#include "core/Korva.h"

namespace korva {

struct SummaryRow {
  std::string Caption;
  std::string Value;
};

// The inputs that make the panel, with their units.
std::vector<SummaryRow> KeyInputs(const StoredProject& project);

// The stability factors of the last run as its page shows them, a row for each case of each model that ran;
// an en dash for what was not computed. No rows if there was no run for this project.
struct FactorSummary {
  struct Row {
    std::string Caption;
    std::vector<std::string> Values;  // by column
  };
  std::vector<std::string> Columns;  // the zone, and the barriers that there are
  std::vector<Row> Rows;
  bool OutOfDate = false;  // an input has changed since
};
FactorSummary LastFactors(const Korva& korva);

// What was odd in a file, a line each; nothing of what is harmless.
std::vector<std::string> NoticeTexts(const std::vector<FileNotice>& notices);

// What a person should know about the project that no message has reported: what was odd in its file, and
// what the input form would refuse of a project that was calculated all the same. Empty if there is nothing.
std::string ProjectRemark(const Korva& korva);

}  // namespace korva
