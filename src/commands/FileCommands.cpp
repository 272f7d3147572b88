#include "commands/FileCommands.h"

#include <algorithm>
#include <utility>

#include "core/Description.h"
#include "core/Encoding.h"
#include "files/PlatformFile.h"
#include "files/ProjectFile.h"
#include "files/SafeWriter.h"
#include "files/VoskFile.h"

namespace korva {

namespace {

constexpr int kFirstResultPage = 1;

bool WasReadWhole(const std::vector<FileNotice>& notices) {
  return std::all_of(notices.begin(), notices.end(),
                     [](const FileNotice& notice) { return notice.kind == FileNoticeKind::kNoLineEnd; });
}

}  // namespace

void FileNew(Korva& korva, bool resetName, bool resetUnits) {
  if (resetUnits) {
    korva.Stored.ProjectUnits = korva.Preferences.DefaultUnits;
  }
  if (resetName) {
    korva.ProjectFileName = kUntitled;
  }
  korva.ProjectSaved = true;
  korva.ProjectEmpty = true;
  korva.ProjectFileMode = 1;
  korva.ProjectUnitsLocked = false;
  korva.OpenFile = {};
  korva.FileNotices.clear();
  korva.WarningText.clear();
  korva.LastRun.reset();
  for (int page = kFirstResultPage; page <= OutputPages::kLast; ++page) {
    korva.OutBuf[page].clear();
  }
  const std::int16_t carried = korva.Stored.ProjectInput.LoadingConditionAux;
  korva.Stored.ProjectInput = EmptyProject(korva.Stored.ProjectUnits);
  korva.Stored.ProjectInput.LoadingConditionAux = carried;
  korva.Stored.ProjectTitle.clear();
  korva.Stored.ProjectDescription.clear();
  HistoryLog(korva.SessionHistory, korva.Preferences,
             "File initialized. Use Edit-Project Parameters to enter data");
}

bool FileOpen(Korva& korva, MessagePort& messages) {
  FileNew(korva, false, true);
  HistoryLog(korva.SessionHistory, korva.Preferences, "Opening: " + korva.ProjectFileName);
  korva.OpenFile.Name = korva.ProjectFileName;
  korva.OpenFile.Bytes = ReadWholeFile(korva.ProjectFileName, kLargestProjectFile);
  const std::string text = TextFromFileBytes(korva.OpenFile.Bytes);
  const auto format = DetectProjectFormat(text, korva.ProjectFileName);
  if (!format) {
    ShowMessage(korva, messages,
                {.text = std::string(kInvalidFormat), .title = {}, .topic = "messages-files"});
    return false;
  }
  korva.ProjectFormatVersion = *format;
  ReadProject(text, korva.ProjectFileName, *format, korva.Stored, korva.FileNotices);
  korva.ProjectSaved = true;
  korva.ProjectEmpty = false;
  korva.ProjectUnitsLocked = true;
  korva.ProjectCalc = korva.Stored.ProjectInput;
  korva.OpenFile.ReadWhole = WasReadWhole(korva.FileNotices);
  return true;
}

bool FileOpenVOSK(Korva& korva, MessagePort& messages) {
  FileNew(korva, false, true);
  HistoryLog(korva.SessionHistory, korva.Preferences, "Opening: " + korva.ProjectFileName);
  const std::string text = TextFromFileBytes(ReadWholeFile(korva.ProjectFileName, kLargestProjectFile));
  if (!DetectVoskFormat(text, korva.ProjectFileName)) {
    ShowMessage(korva, messages,
                {.text = std::string(kInvalidFormat), .title = {}, .topic = "messages-files"});
    return false;
  }
  korva.ProjectFormatVersion = 0;  // none of the project file's own
  ReadVoskProject(text, korva.ProjectFileName, korva.Stored, korva.FileNotices);
  korva.ProjectSaved = true;
  korva.ProjectEmpty = false;
  korva.ProjectUnitsLocked = true;
  return true;
}

void FileSave(Korva& korva) {
  HistoryLog(korva.SessionHistory, korva.Preferences, "Saving: " + korva.ProjectFileName);
  NormalizeDescription(korva.Stored);
  std::string bytes = FileBytesFromText(ComposeProject(korva.Stored));
  WriteFileSafely(korva.ProjectFileName, bytes);
  korva.OpenFile = {korva.ProjectFileName, std::move(bytes), true};
  if (korva.Stored.ProjectInput.NumberEntries == 0) {
    korva.Stored.ProjectInput.NumberEntries = 1;  // as a reader of the file would have it
  }
  korva.ProjectSaved = true;
  korva.FileNotices.clear();
}

void ConvertProject(Korva& korva, std::int16_t targetUnits) {
  ConvertProjectUnits(korva.Stored, targetUnits);
  korva.ProjectFileName = ConvertedFileName(korva.ProjectFileName, targetUnits);
  korva.ProjectSaved = false;
}

}  // namespace korva
