// The labels by which the help file knows windows and controls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korva {

// The topic behind the button "Help on Stability Factors".
inline constexpr std::string_view kStabilityFactorsTopic = "stability-factors";
// The page that opens when nothing better is there.
inline constexpr std::string_view kStartTopic = "korva-strond-help";

// "frmKORVAOpts" and "optUnits(0)" make "frmkorvaopts-optunits-0"; without a control it is the form's label.
std::string HelpLabel(std::string_view form, std::string_view control = {});

// The labels to look for, the best first: each of `controls`, from the one with the focus outwards, by itself
// and then by its array, and the form at the end. Names that are empty or the toolkit's own ("qt_...") are
// left out.
std::vector<std::string> HelpLabels(std::string_view form, const std::vector<std::string>& controls);

}  // namespace korva
