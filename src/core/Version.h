// The program's version.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace korva {

// The name of the program in upper case, as files and folders carry it.
inline constexpr std::string_view ExeName = "KORVA-STROND";

// The desktop program's file.
inline constexpr std::string_view ProgramFile = "korva-strond";

inline constexpr int kVersionMajor = 1;
inline constexpr int kVersionMinor = 1;
inline constexpr int kVersionRevision = 5;

inline constexpr std::chrono::year_month_day kRevisionDate{std::chrono::year{2023}, std::chrono::February,
                                                           std::chrono::day{19}};

// "1.1.05" if `separated`, for people; else "1105", the form that versions are compared in.
std::string ProgramVersionText(bool separated);

// The date of this version, "19-Feb-2023".
std::string RevisionDateText();

}  // namespace korva
