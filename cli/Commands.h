// The commands of `korva`, one file each.
#pragma once

#include "Session.h"

namespace korva::cli {

Command AddReport(CLI::App& app, const CommonOptions& common);
Command AddCalc(CLI::App& app, const CommonOptions& common);
Command AddBatch(CLI::App& app, const CommonOptions& common);
Command AddSweep(CLI::App& app, const CommonOptions& common);
Command AddPlan(CLI::App& app, const CommonOptions& common);
Command AddSave(CLI::App& app, const CommonOptions& common);
Command AddConvert(CLI::App& app, const CommonOptions& common);
Command AddUnits(CLI::App& app, const CommonOptions& common);
// One for each kind of file that can be imported.
std::vector<Command> AddImport(CLI::App& app, const CommonOptions& common);

}  // namespace korva::cli
