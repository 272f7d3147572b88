// What a form works with: the program's state, its ports, and the main window as far as forms know it.
#pragma once

#include <string>
#include <vector>

#include "core/Korva.h"
#include "core/Ports.h"

class QWidget;

namespace korva::desktop {

class PicturePrinter;

class MainWindow {
 public:
  virtual ~MainWindow() = default;
  // Shows the state as it is now: caption, card, status line.
  virtual void Refresh() = 0;
  // History box, its commands and toolbar by the settings; a window that is maximised stays so.
  virtual void ApplyDisplaySettings() = 0;
  // The font of the history box alone.
  virtual void ApplyHistoryFont() = 0;
  // Opens the parameters form, as the command "Project Parameters..." does.
  virtual void EditParameters() = 0;
  // Opens the results window on the pages that stand; `returnTo` is enabled and shown again when it closes.
  virtual void ShowResults(QWidget* returnTo) = 0;
  // Keeps a copy of what is not saved yet, before something that may take long or end the program.
  virtual void KeepWork() = 0;
  // Keeps unsaved work, which is about to be dropped; it is offered at the next start.
  virtual void KeepDroppedWork() = 0;
  // Opens the help at the first of these labels that it has.
  virtual void ShowHelp(const std::vector<std::string>& labels) = 0;
  // Ends the program without a question; unsaved work is kept as KeepDroppedWork keeps it.
  virtual void QuitNow() = 0;
  // Enabled while no window of the program stands in front of it.
  virtual void SetInputEnabled(bool enabled) = 0;
};

struct Session {
  Korva& State;
  korva::Ports& Ports;
  MainWindow& Main;
  PicturePrinter& Pictures;
};

}  // namespace korva::desktop
