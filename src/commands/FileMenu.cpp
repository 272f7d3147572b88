#include "commands/FileMenu.h"

#include <fmt/format.h>

#include <utility>

#include "commands/FileCommands.h"
#include "commands/Recovery.h"
#include "commands/SettingsCommands.h"
#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "core/Version.h"
#include "files/VoskFile.h"

namespace korva {

namespace {

std::string SaveQuestion(const std::string& fileName) {
  return fmt::format("Save changes to: {}?", fileName);
}

}  // namespace

FileMenu::FileMenu(Korva& korva, Ports& ports, Recovery& recovery)
    : korva_(korva), ports_(ports), recovery_(recovery) {
  const Settings& settings = korva.Preferences;
  for (int n = 1; settings.KeepFileNames && n <= settings.FileMenu.MaxLastFiles; ++n) {
    if (!settings.FileMenu.LastFile[n].empty()) {
      captions_[n] =
          settings.ShortRecentFiles ? settings.FileMenu.LastFile[n] : settings.FileMenu.LastFileLong[n];
    }
  }
}

// A cancelled dialog leaves the name stripped of its folder.
void FileMenu::ChooseFile(FileDialog dialog, std::string& lastName) {
  std::string& name = korva_.ProjectFileName;
  FileQuestion question;
  question.Save = dialog == FileDialog::kSave;
  if (dialog == FileDialog::kImport) {
    question.Title = "Import VOSK Project Files";
  }
  if (!Trimmed(name).empty()) {
    name = FileBaseName(name, false);
    question.Name = name;
  }
  const std::string& from = lastName.empty() || lastName == "1" ? korva_.Preferences.DataPath : lastName;
  question.Folder = from.find('/') == std::string::npos ? std::string() : FolderOf(from);
  const std::string& extension = korva_.Preferences.FileExtension;
  question.DefaultExtension = extension;
  question.Filters = {kAllFiles, fmt::format("{} Files (*.{})", ExeName,
                                             dialog == FileDialog::kImport ? kVoskExtension : extension)};
  question.ActiveFilter = 1;
  const auto chosen = ports_.Files.ChooseFile(question);
  if (!chosen) {
    throw RuntimeError(ErrorNumber::kDialogCancelled);
  }
  name = *chosen;
  lastName = *chosen;
}

void FileMenu::New() {
  recovery_.KeepDroppedWork();
  FileNew(korva_);
  recovery_.AnnounceOpenFile(ports_.Messages);
}

bool FileMenu::Open() {
  korva_.ProjectPreviousFileName = korva_.ProjectFileName;
  return Attempt(korva_, ports_.Messages, [this] { ChooseFile(FileDialog::kOpen, lastOpenName_); }) ==
             AttemptResult::kDone &&
         LoadProjFile();
}

bool FileMenu::ImportVosk() {
  korva_.ProjectPreviousFileName = korva_.ProjectFileName;
  const bool imported =
      Attempt(korva_, ports_.Messages, [this] { ChooseFile(FileDialog::kImport, lastOpenName_); }) ==
          AttemptResult::kDone &&
      Load(FileOpenVOSK);
  korva_.ProjectFileName = kUntitled;
  recovery_.AnnounceOpenFile(ports_.Messages);
  return imported;
}

bool FileMenu::OpenRecent(int index) {
  return OpenPath(korva_.Preferences.FileMenu.LastFileLong[index]);
}

bool FileMenu::OpenPath(const std::string& path) {
  korva_.ProjectPreviousFileName = korva_.ProjectFileName;
  korva_.ProjectFileName = path;
  return LoadProjFile();
}

bool FileMenu::LoadProjFile() {
  const bool opened = Load(FileOpen);
  if (opened) {
    AddRecentFile();
  }
  recovery_.AnnounceOpenFile(ports_.Messages);
  return opened;
}

bool FileMenu::Load(bool (*read)(Korva&, MessagePort&)) {
  bool loaded = false;
  Attempt(korva_, ports_.Messages, [&] {
    if (!SaveBeforeOpening()) {
      return;
    }
    const BusyPointer busy(ports_.Busy);
    loaded = read(korva_, ports_.Messages);
  });
  return loaded;
}

// False if the person asked for saving and nothing was saved: then the project stays open under its name.
bool FileMenu::SaveBeforeOpening() {
  if (korva_.ProjectSaved) {
    return true;
  }
  if (!IsConfirmed(korva_, ports_.Messages, SaveQuestion(korva_.ProjectPreviousFileName), "messages-files",
                   MessageButtons::kYesNoDefaultNo)) {
    recovery_.KeepDroppedWork();
    return true;
  }
  const std::string opening = std::exchange(korva_.ProjectFileName, korva_.ProjectPreviousFileName);
  if (!FileMenuSave(false)) {
    korva_.ProjectFileName = korva_.ProjectPreviousFileName;
    return false;
  }
  korva_.ProjectFileName = opening;
  return true;
}

bool FileMenu::Save(bool saveAs) {
  const bool saved = FileMenuSave(saveAs);
  if (saved) {
    AddRecentFile();
    recovery_.RecordOpenFile();  // the person was told before
  }
  return saved;
}

// A name that the person then does not want to replace is not taken.
bool FileMenu::FileMenuSave(bool saveAs) {
  const std::string before = korva_.ProjectFileName;
  bool saved = false;
  bool chosen = false;
  Attempt(korva_, ports_.Messages, [&] {
    if (!chosen && (saveAs || HasNoName(korva_.ProjectFileName))) {
      ChooseFile(FileDialog::kSave, lastSaveName_);
      chosen = true;
    }
    if (!MayReplace(chosen)) {
      korva_.ProjectFileName = before;
      return;
    }
    const BusyPointer busy(ports_.Busy);
    FileSave(korva_);
    saved = true;
  });
  return saved;
}

// What speaks against replacing the file of the project's name: it is not known to be what was opened or
// saved last, or another window has it open. Empty if nothing does. `chosen` tells that the name comes from a
// dialog just now, which has asked.
std::string FileMenu::SaveWarning(bool chosen) const {
  switch (CompareWithDisk(korva_)) {
    case DiskState::kNotReadWhole:
      return "{} could not be read whole. Saving replaces it with what was read. Replace it?";
    case DiskState::kChanged:
      return "{} has been changed by another program or window since it was opened. Replace it?";
    case DiskState::kAnotherFile:
      if (!chosen) {
        return "{} exists already and is not the file that was opened. Replace it?";
      }
      break;
    case DiskState::kAsKnown:
      break;
  }
  return recovery_.IsOpenElsewhere() ? std::string(kOpenElsewhere) + " Save it?" : "";
}

bool FileMenu::MayReplace(bool chosen) {
  const std::string warning = SaveWarning(chosen);
  return warning.empty() ||
         IsConfirmed(korva_, ports_.Messages, fmt::format(fmt::runtime(warning), korva_.ProjectFileName),
                     "messages-files", MessageButtons::kYesNoDefaultNo, MessageIcon::kExclamation);
}

bool FileMenu::MayExit() {
  if (korva_.ProjectSaved) {
    return true;
  }
  switch (ShowMessage(korva_, ports_.Messages,
                      {.text = SaveQuestion(korva_.ProjectFileName),
                       .buttons = MessageButtons::kYesNoCancel,
                       .icon = MessageIcon::kQuestion,
                       .topic = "messages-files"})) {
    case MessageAnswer::kYes:
      return Save(false);
    case MessageAnswer::kNo:
      return true;
    case MessageAnswer::kOk:
    case MessageAnswer::kRetry:
    case MessageAnswer::kCancel:
      return false;
  }
  return false;
}

bool FileMenu::Exit() {
  if (!MayExit()) {
    return false;
  }
  SaveSettings(korva_, SettingsSection::kFileMenu);
  recovery_.EndCleanly();
  return true;
}

// Puts the open project at the front of the recent files: an entry of the same caption changes places with
// the first, a new one moves all others down and is saved.
void FileMenu::AddRecentFile() {
  const Settings& settings = korva_.Preferences;
  RecentFiles& recent = korva_.Preferences.FileMenu;
  const std::string& name = korva_.ProjectFileName;
  const std::string shown = settings.ShortRecentFiles ? FileBaseName(name, false) : name;
  if (!settings.KeepFileNames) {
    return;
  }
  for (int n = 1; n <= recent.MaxLastFiles; ++n) {
    if (captions_[n] == shown) {
      std::swap(captions_[n], captions_[1]);
      std::swap(recent.LastFile[n], recent.LastFile[1]);
      std::swap(recent.LastFileMode[n], recent.LastFileMode[1]);
      std::swap(recent.LastFileLong[n], recent.LastFileLong[1]);
      recent.LastFileLong[1] = name;
      return;
    }
  }
  if (recent.MaxLastFiles < kMostRecentFiles) {
    ++recent.MaxLastFiles;
  }
  for (int n = recent.MaxLastFiles; n > 1; --n) {
    captions_[n] = captions_[n - 1];
    recent.LastFile[n] = recent.LastFile[n - 1];
    recent.LastFileMode[n] = recent.LastFileMode[n - 1];
    recent.LastFileLong[n] = recent.LastFileLong[n - 1];
  }
  captions_[1] = shown;
  recent.LastFile[1] = shown;
  recent.LastFileMode[1] = korva_.ProjectFileMode;
  recent.LastFileLong[1] = name;
  SaveSettings(korva_, SettingsSection::kFileMenu);
}

std::string CaptionFileName(const std::string& fileName) {
  constexpr std::size_t kLongest = 50;
  constexpr std::size_t kHead = 10;
  constexpr std::size_t kTail = 37;
  const std::size_t length = CharacterCount(fileName);
  if (length <= kLongest) {
    return fileName;
  }
  return fileName.substr(0, BytesOfCharacters(fileName, kHead)) + "..." +
         fileName.substr(BytesOfCharacters(fileName, length - kTail));
}

}  // namespace korva
