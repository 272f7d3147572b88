// The output pages of a run with the traditional loading model. A page is lines with CR LF ends.
#pragma once

#include <string>

#include "core/Project.h"
#include "core/Settings.h"
#include "model/Calculation.h"
#include "reports/OutputResults.h"
#include "reports/Rules.h"

namespace korva {

// Page 1. Barrier factors are shown as they are, those of the AMZ through RoundSF (`outcome`); `warnings` is
// what the rules say on the page.
std::string ReportStabilityFactors(const Calculation& calculation, const Project& project,
                                   const RuleOutcome& outcome, const std::string& warnings);

// Pages 2 to 5. `project` is the record that the run took.
std::string ReportAMZ(const OutputResults& output, const Project& project);
std::string ReportPillars(const OutputResults& output, const OptionSettings& options);
std::string ReportBarriers(const OutputResults& output, const Project& project);
std::string ReportRemnants(const OutputResults& output, const Project& project);

// Page 0, the inputs as they went into the run. `project` holds title, description in its stored form and
// units; `calc` the record that the run took.
std::string InputEcho(const StoredProject& project, const Project& calc, const std::string& fileName,
                      const OptionSettings& options);

}  // namespace korva
