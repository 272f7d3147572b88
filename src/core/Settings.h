// The program's lasting preferences, by the names of their keys. The values here are those of a fresh
// settings file after it has been read back.
#pragma once

#include <cstdint>
#include <string>

namespace korva {

// Section "KORVAOptions".
struct OptionSettings {
  std::int16_t OutputStrUnits = 0;      // stresses in English projects: 0 psi, 1 psf
  std::int16_t OutputStrGradUnits = 1;  // loads in English projects: 0 lbs, 1 tons
  std::int16_t ShowInputScreenOnLoad = 1;
  std::int16_t IssueWarningCancel = 1;
  std::int16_t ViewChildWindow = 1;
  std::int16_t PrintModuleHeader = 1;
  std::int16_t PlotEntryDims = 1;
  std::int16_t PlotXcutDims = 1;
  std::int16_t PlotGobDims = 1;
  std::int16_t PlotSingleXcutDims = 1;
  std::int16_t PlotGobExtLoose = 1;
  float PlotRangeMin = 50;   // percent
  float PlotRangeMax = 150;  // percent
  std::int16_t PrintPlotReminder = 1;
  std::int16_t AskOfficeInstall = 1;
  std::int16_t RoundKORVASF = 0;     // see RoundSF
  std::int16_t CellSizeEnglish = 2;  // ft
  float CellSizeMetric = 0.5F;       // m
  std::int16_t Strond2DViewProgress = 0;
  std::int16_t Strond2DViewProgOutput = 0;
  std::int16_t Strond2DViewOutput = 0;
  std::int16_t iOptDir = 3;
};

struct Settings {
  std::int16_t DefaultUnits = 0;       // unit system of new projects
  std::int16_t DisplayHistoryWin = 0;  // 1 keeps the history
  std::int16_t MaxDisplaySize = 4096;  // characters of the history
  OptionSettings Options;
};

}  // namespace korva
