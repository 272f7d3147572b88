// Texts about the program: the hint behind the buttons "Help", the documents that come with it, its About
// message, the disclaimer.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace korva {

inline constexpr std::string_view kHelpHint =
    "Position the cursor on any item on the form and press F1 for context-sensitive Help";

inline constexpr std::string_view HelpFileName = "korva-strond.qch";
inline constexpr std::string_view ManualFileName = "KORVA-STROND.PDF";

// The documents that come with the program, and the captions of their buttons.
inline constexpr int kResources = 9;
inline constexpr std::array<std::string_view, kResources> ResourceFiles = {
    "res_stump_2001.pdf",    "res_riskfactors_2003.pdf",  "res_deepcover_2010.pdf",
    "res_retreat_1997.pdf",  "res_coalstrength_1997.pdf", "res_mobilesupports_1997.pdf",
    "res_tutorial_2010.pdf", "res_examples_2010.pdf",     "res_casebase_n646.xls"};
inline constexpr std::array<std::string_view, kResources> ResourceTitles = {
    "Sizing the Final Stump", "Pillar Recovery Risk Factors", "Pillar Sizing for Deep Cover",
    "Korva Panel Review",     "In situ Strength of Coal",     "Mobile Roof Supports",
    "KORVA Tutorial",         "KORVA Examples Tutorial",      "KORVA Database"};

// What "About the Program..." shows, and its title.
std::string AboutText();
std::string AboutTitle();

// The disclaimer, its lines as the window wraps them.
std::string DisclaimerText();

}  // namespace korva
