#include "commands/Recovery.h"

#include <fmt/format.h>

#include <filesystem>

#include "commands/FileCommands.h"
#include "core/Description.h"
#include "core/Encoding.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/PlatformFile.h"
#include "files/ProjectFile.h"
#include "files/SafeWriter.h"

namespace korva {

namespace {

// A copy is a project file with one more line that tells the project's name.
constexpr std::string_view kNameMark = "##Recovery##";

struct CopyText {
  std::string Project;
  std::string Name;
};

std::optional<CopyText> SplitCopy(const std::string& text) {
  const auto mark = text.rfind(kNameMark);
  if (mark == std::string::npos) {
    return std::nullopt;
  }
  return CopyText{text.substr(0, mark),
                  std::string(TakeLine(std::string_view(text).substr(mark + kNameMark.size())).line)};
}

std::string ReadCopy(const std::string& path) {
  return TextFromFileBytes(ReadWholeFile(path, kLargestProjectFile));
}

std::string FullName(const std::string& name) {
  std::error_code failure;
  const auto full = std::filesystem::absolute(name, failure);
  return failure ? name : full.string();
}

}  // namespace

bool Recovery::WriteCopy(const std::string& path, const StoredProject& project, const std::string& name) {
  if (path.empty()) {
    return false;
  }
  try {
    StoredProject copy = project;
    NormalizeDescription(copy);
    std::string text = ComposeProject(copy);
    text.append(kNameMark).append(name).append(kLineEnd);
    if (text != lastCopy_ || path != folder_.CopyPath()) {
      WriteFileSafely(path, FileBytesFromText(text));
      lastCopy_ = text;
    }
    return true;
  } catch (const RuntimeError& error) {
    if (!failureLogged_) {
      failureLogged_ = true;
      HistoryLog(korva_.SessionHistory, korva_.Preferences, std::string("Recovery copy: ") + error.what());
    }
    return false;
  }
}

void Recovery::KeepCopy() {
  const auto draft = Draft ? Draft() : std::nullopt;
  if (draft) {
    WriteCopy(folder_.CopyPath(), *draft, korva_.ProjectFileName);
  } else if (!korva_.ProjectSaved) {
    WriteCopy(folder_.CopyPath(), korva_.Stored, korva_.ProjectFileName);
  } else if (!lastCopy_.empty()) {
    SessionFolder::Remove(folder_.CopyPath());
    lastCopy_.clear();
  }
}

void Recovery::KeepDroppedWork(const std::string& name) {
  if (korva_.ProjectSaved) {
    return;
  }
  const std::string path = folder_.NewDroppedPath();
  if (WriteCopy(path, korva_.Stored, name)) {
    HistoryLog(korva_.SessionHistory, korva_.Preferences, "Unsaved work kept: " + path);
  }
  SessionFolder::Remove(folder_.CopyPath());
  lastCopy_.clear();
}

bool Recovery::Restore(const std::string& path) {
  const auto copy = SplitCopy(ReadCopy(path));
  const auto format = copy ? DetectProjectFormat(copy->Project, path) : std::nullopt;
  if (!format) {
    return false;
  }
  FileNew(korva_, true, true);
  ReadProject(copy->Project, path, *format, korva_.Stored, korva_.FileNotices);
  korva_.FileNotices.clear();
  korva_.ProjectFileName = copy->Name;
  korva_.ProjectSaved = false;
  korva_.ProjectEmpty = false;
  korva_.ProjectUnitsLocked = true;
  KeepCopy();
  return true;
}

bool Recovery::OfferCopies(MessagePort& messages) {
  const auto abandoned = folder_.TakeAbandoned();
  for (const std::string& path : abandoned.Copies) {
    try {
      const auto copy = SplitCopy(ReadCopy(path));
      const std::string name = copy ? copy->Name : path;
      const bool wanted =
          copy &&
          ShowMessage(korva_, messages,
                      {fmt::format("Unsaved work on {} was kept when the program ended. Restore it?", name),
                       MessageButtons::kYesNo,
                       MessageIcon::kQuestion,
                       {},
                       {},
                       "messages-files"}) == MessageAnswer::kYes;
      if (wanted && Restore(path)) {
        SessionFolder::PutAside(path);
        TellOpenFile(messages);
        return true;
      }
    } catch (const RuntimeError& error) {
      HistoryLog(korva_.SessionHistory, korva_.Preferences, std::string("Recovery copy: ") + error.what());
    }
    SessionFolder::PutAside(path);
  }
  return false;
}

void Recovery::TellOpenFile(MessagePort& messages) {
  std::error_code unknown;
  const bool isFile = std::filesystem::is_regular_file(korva_.ProjectFileName, unknown);
  const std::string name = isFile ? FullName(korva_.ProjectFileName) : std::string();
  folder_.TellOpenFile(name);
  if (isFile && folder_.IsOpenElsewhere(name)) {
    ShowMessage(
        korva_, messages,
        {fmt::format("{} is open in another window of this program. What is saved in one window replaces "
                     "what was saved in the other.",
                     korva_.ProjectFileName),
         MessageButtons::kOk,
         MessageIcon::kExclamation,
         {},
         {},
         "messages-files"});
  }
}

DiskState CompareWithDisk(const Korva& korva) {
  const std::string& name = korva.ProjectFileName;
  if (!StateOfFile(name).exists) {
    return DiskState::kAsKnown;
  }
  if (korva.OpenFile.Name != name) {
    return DiskState::kAnotherFile;
  }
  if (!korva.OpenFile.ReadWhole) {
    return DiskState::kNotReadWhole;
  }
  return ReadWholeFile(name, kLargestProjectFile) == korva.OpenFile.Bytes ? DiskState::kAsKnown
                                                                          : DiskState::kChanged;
}

}  // namespace korva
