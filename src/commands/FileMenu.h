// The file commands of the main window: their dialogs, questions and order, and the recent file list.
#pragma once

#include <string>

#include "commands/Attempt.h"
#include "commands/Recovery.h"
#include "core/Korva.h"
#include "core/Ports.h"

namespace korva {

class FileMenu {
 public:
  // Takes the captions of the recent files from the settings.
  FileMenu(Korva& korva, Ports& ports, Recovery& recovery);

  // Resets the project without a question; unsaved work stays as a recovery copy.
  void New();

  // Asks for a file and opens it. True if a project was opened.
  bool Open();
  // Asks for a file of the sibling program and takes its panel over. True if a panel was taken. Whatever came
  // of it, the open project has no file name any more: the next Save asks for one.
  bool ImportVosk();
  // Opens entry `index` (1 to 4) of the recent files.
  bool OpenRecent(int index);
  // Opens `path` without asking for a name.
  bool OpenPath(const std::string& path);

  // Saves the project, asking for a name if it has none or if `saveAs`. True if it was saved; the recent
  // files then begin with it.
  bool Save(bool saveAs);

  // What the menu shows of the recent files, 1 to 4; empty for an entry that is not there. A changed setting
  // shows only after the next start.
  const IndexedArray<std::string, 1, kMostRecentFiles>& RecentCaptions() const { return captions_; }

  // Ends the session: asks about unsaved work, saves the recent files, drops the recovery copy. False if the
  // program has to stay.
  bool Exit();

 private:
  bool MayExit();
  // Reads ProjectFileName, after the question for unsaved work. True if a project was opened.
  bool LoadProjFile();
  // Runs `read` after that question; its result.
  bool Load(bool (*read)(Korva&, MessagePort&));
  bool FileMenuSave(bool saveAs);
  bool SaveBeforeOpening();
  std::string SaveWarning(bool chosen) const;
  bool MayReplace(bool chosen);
  void AddRecentFile();
  enum class FileDialog { kOpen, kSave, kImport };
  void ChooseFile(FileDialog dialog, std::string& lastName);

  Korva& korva_;
  Ports& ports_;
  Recovery& recovery_;
  IndexedArray<std::string, 1, kMostRecentFiles> captions_;
  std::string lastOpenName_;  // chosen in the last dialogs
  std::string lastSaveName_;
};

// What the main window shows of a file name: at most 50 characters, longer ones as their first 10, "..." and
// their last 37.
std::string CaptionFileName(const std::string& fileName);

}  // namespace korva
