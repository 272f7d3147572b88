// What OK of the forms changes in the project, the settings and the options.
#pragma once

#include <functional>
#include <string>

#include "core/Korva.h"
#include "input/ParameterTexts.h"

namespace korva {

// The form's texts. The description's lines are joined by CR LF.
struct DescriptionTexts {
  std::string Title;
  std::string Description;
  UnitSystem Units = kEnglish;
};

// Takes title and description over; line breaks in the title become blanks.
void TakeTexts(const std::string& title, const std::string& description, StoredProject& project);

// Takes the texts over; line breaks in the title become blanks. Other units than the project's reset it to
// the defaults of the new system, its title and description with it. The project counts as changed even if
// nothing was typed.
void AcceptDescription(Korva& korva, const DescriptionTexts& texts);

// Takes the texts over. A change of the arch factor alone counts as none and is not taken; the unit system
// can be changed no more either way.
void AcceptParameters(Korva& korva, const ParameterTexts& texts);

// Takes the texts over into the working copy alone, for a run or a plan that the form asks for.
void StoreCalcParameters(Korva& korva, const ParameterTexts& texts);

// Leaves the project as it is; if that discards something and the options say so, only after a question.
// False if the form has to stay open.
bool DiscardParameters(Korva& korva, MessagePort& messages, const ParameterTexts& texts);

// Takes the settings, the options or the format of graphs over and saves them. `apply` shows the settings
// before the history speaks of them.
void AcceptSettings(Korva& korva, const Settings& settings, const std::function<void()>& apply);
void AcceptOptions(Korva& korva, const OptionSettings& options);
void AcceptGraph(Korva& korva, const GraphSettings& graph);

// Saves that the disclaimer is accepted for good: no start shows it any more.
void AcceptDisclaimer(Korva& korva);

}  // namespace korva
