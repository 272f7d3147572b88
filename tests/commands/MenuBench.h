// What the file menu is tested on.
#pragma once

#include "commands/CommandBench.h"
#include "commands/FileCommands.h"
#include "commands/FileMenu.h"
#include "support/Panels.h"

namespace korva {

class MenuBench : public CommandBench {
 protected:
  MenuBench() {
    korva.Places.StateFolder = folder / "sessions/";
    korva.Preferences.DataPath = folder / "";
    FileNew(korva);
    recovery = std::make_unique<Recovery>(korva);
    menu = std::make_unique<FileMenu>(korva, ports.All, *recovery);
  }

  // A project file of the sample panel under that name.
  std::string PutProject(const std::string& name) const {
    Korva other;
    other.Stored = test::Stored(test::DevelopmentPanel());
    other.ProjectFileName = folder / name;
    FileSave(other);
    return other.ProjectFileName;
  }

  void Edit(double depth) {
    korva.Stored.ProjectInput.DepthCover = depth;
    korva.ProjectSaved = korva.ProjectEmpty = false;
  }

  static constexpr auto kYesNo = MessageButtons::kYesNoDefaultNo;

  std::unique_ptr<Recovery> recovery;
  std::unique_ptr<FileMenu> menu;
};

}  // namespace korva
