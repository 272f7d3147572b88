#include "commands/FileCommands.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "core/Description.h"
#include "core/Encoding.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/ProjectFile.h"
#include "files/SafeWriter.h"
#include "files/VoskFile.h"
#include "input/ConvertProjectUnits.h"

namespace korva {

namespace {

constexpr int kFirstResultPage = 1;

bool WasReadWhole(const std::vector<FileNotice>& notices) {
  return std::all_of(notices.begin(), notices.end(),
                     [](const FileNotice& notice) { return notice.kind == FileNoticeKind::kNoLineEnd; });
}

// From now on the project's data belongs to the file ProjectFileName.
void TakeFileName(Korva& korva) {
  const std::string& name = korva.ProjectFileName;
  korva.ProjectOwnName = HasNoName(name) ? std::string(kUntitled) : FullName(name);
}

// Why a file is none of the format that was looked for.
std::string FormatRefusal(std::string_view bytes) {
  constexpr std::array<std::string_view, 3> kMarks = {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};
  const bool marked = std::any_of(kMarks.begin(), kMarks.end(),
                                  [bytes](std::string_view mark) { return bytes.starts_with(mark); });
  return std::string(kInvalidFormat) +
         (marked
              ? ": the file begins with a byte-order mark, which a text editor has put there. Save it in the "
                "editor as ANSI, or as UTF-8 without that mark, and open it then."
              : "");
}

}  // namespace

bool HasNoName(const std::string& fileName) {
  std::string upper(fileName);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return upper.empty() || upper == "UNTITLED";
}

void FileNew(Korva& korva, const NewProject& how) {
  if (how.ResetUnits) {
    korva.Stored.ProjectUnits = korva.Preferences.DefaultUnits;
  }
  if (how.ResetName) {
    korva.ProjectFileName = kUntitled;
  }
  TakeFileName(korva);
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
  const int carried = korva.Stored.ProjectInput.LoadingConditionAux;
  korva.Stored.ProjectInput = EmptyProject(korva.Stored.ProjectUnits);
  korva.Stored.ProjectInput.LoadingConditionAux = carried;
  korva.Stored.ProjectTitle.clear();
  korva.Stored.ProjectDescription.clear();
  HistoryLog(korva, "File initialized. Use Edit-Project Parameters to enter data");
}

bool FileOpen(Korva& korva, MessagePort& messages) {
  FileNew(korva, {.ResetName = false});
  HistoryLog(korva, "Opening: " + korva.ProjectFileName);
  korva.OpenFile.Name = korva.ProjectOwnName;
  korva.OpenFile.Bytes = ReadWholeFile(korva.ProjectFileName, kLargestProjectFile);
  const std::string text = TextFromFileBytes(korva.OpenFile.Bytes);
  const auto format = DetectProjectFormat(text, korva.ProjectFileName);
  if (!format) {
    ShowMessage(korva, messages, {.text = FormatRefusal(korva.OpenFile.Bytes), .topic = "messages-files"});
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
  FileNew(korva, {.ResetName = false});
  korva.ProjectOwnName = kUntitled;  // whatever is read, it is no project of the sibling's file
  HistoryLog(korva, "Opening: " + korva.ProjectFileName);
  const std::string bytes = ReadWholeFile(korva.ProjectFileName, kLargestProjectFile);
  const std::string text = TextFromFileBytes(bytes);
  if (!DetectVoskFormat(text, korva.ProjectFileName)) {
    ShowMessage(korva, messages, {.text = FormatRefusal(bytes), .topic = "messages-files"});
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
  HistoryLog(korva, "Saving: " + korva.ProjectFileName);
  NormalizeDescription(korva.Stored);
  std::string bytes = FileBytesFromText(ComposeProject(korva.Stored));
  WriteFileSafely(korva.ProjectFileName, bytes);
  TakeFileName(korva);
  korva.OpenFile = {korva.ProjectOwnName, std::move(bytes), true};
  if (korva.Stored.ProjectInput.NumberEntries == 0) {
    korva.Stored.ProjectInput.NumberEntries = 1;  // as a reader of the file would have it
  }
  korva.ProjectSaved = true;
  korva.FileNotices.clear();
}

void ConvertProject(Korva& korva, UnitSystem targetUnits) {
  ConvertProjectUnits(korva.Stored, targetUnits);
  korva.ProjectFileName = ConvertedFileName(korva.ProjectFileName, targetUnits);
  TakeFileName(korva);
  korva.ProjectSaved = false;
}

}  // namespace korva
