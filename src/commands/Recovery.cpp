#include "commands/Recovery.h"

#include <fmt/format.h>

#include <cstdint>
#include <utility>

#include "commands/FileCommands.h"
#include "core/Description.h"
#include "core/Encoding.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/ProjectFile.h"
#include "files/SafeWriter.h"

namespace korva {

namespace {

// A copy is a project file with two more lines: the project's name after a mark, and what is known of the
// file of that name. A copy of a project that no file is known for has no second line.
constexpr std::string_view kNameMark = "##Recovery##";

struct CopyText {
  std::string Project;
  std::string Name;
  std::string FileFingerprint;
};

std::optional<CopyText> SplitCopy(const std::string& text) {
  const auto mark = text.rfind(kNameMark);
  if (mark == std::string::npos) {
    return std::nullopt;
  }
  std::string name = text.substr(mark + kNameMark.size());
  if (name.ends_with(kLineEnd)) {
    name.resize(name.size() - kLineEnd.size());
  }
  const auto line = name.rfind(kLineEnd);  // a name may hold a line feed
  std::string fileMark = line == std::string::npos ? std::string() : name.substr(line + kLineEnd.size());
  return CopyText{text.substr(0, mark), name.substr(0, line), std::move(fileMark)};
}

std::string ReadCopy(const std::string& path) {
  return TextFromFileBytes(ReadWholeFile(path, kLargestProjectFile));
}

// Whether both names lead to one file, be it there or not. A file that cannot be looked at is none.
bool NamesOneFile(const std::string& a, const std::string& b) {
  return a == b || IsSameFile(a, b);
}

// The full name of a file that is there; nothing for other names.
std::string FullNameOfFile(const std::string& name) {
  return IsFile(name) ? FullName(name) : std::string();
}

// Equal for equal bytes that were read to the same extent, and else different by all chance.
std::string FingerprintOf(const std::string& bytes, bool readWhole) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : bytes) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  }
  return fmt::format("{}:{}:{:016x}", readWhole ? "whole" : "part", bytes.size(), hash);
}

// What a copy says of the project's file, as far as it still holds. Of a file that was changed since then
// only the name is known, so that saving asks.
KnownFile FileOfCopy(const CopyText& copy) {
  KnownFile file;
  if (copy.FileFingerprint.empty()) {
    return file;
  }
  file = {copy.Name, {}, true};
  try {
    std::string bytes = ReadWholeFile(copy.Name, kLargestProjectFile);
    for (const bool readWhole : {true, false}) {
      if (copy.FileFingerprint == FingerprintOf(bytes, readWhole)) {
        file = {copy.Name, std::move(bytes), readWhole};
        break;
      }
    }
  } catch (const RuntimeError&) {
    return file;  // it has gone
  }
  return file;
}

}  // namespace

bool Recovery::WriteCopy(const std::string& path, const StoredProject& project) {
  if (path.empty()) {
    return false;
  }
  try {
    StoredProject copy = project;
    NormalizeDescription(copy);
    std::string text = ComposeProject(copy);
    text.append(kNameMark).append(korva_.ProjectOwnName).append(kLineEnd);
    const KnownFile& file = korva_.OpenFile;
    if (!file.Name.empty() && NamesOneFile(file.Name, korva_.ProjectOwnName)) {
      text.append(FingerprintOf(file.Bytes, file.ReadWhole)).append(kLineEnd);
    }
    if (text != lastCopy_ || path != folder_.CopyPath()) {
      WriteFileSafely(path, FileBytesFromText(text));
      lastCopy_ = text;
    }
    return true;
  } catch (const RuntimeError& error) {
    if (!failureLogged_) {
      failureLogged_ = true;
      HistoryLog(korva_, std::string("Recovery copy: ") + error.what());
    }
    return false;
  }
}

void Recovery::KeepCopy() {
  if (recordedName_ != korva_.ProjectOwnName) {
    RecordOpenFile();  // an import of cases has taken the project's place, say
  }
  const auto draft = Draft ? Draft() : std::nullopt;
  if (draft) {
    WriteCopy(folder_.CopyPath(), *draft);
  } else if (!korva_.ProjectSaved) {
    WriteCopy(folder_.CopyPath(), korva_.Stored);
  } else if (!lastCopy_.empty()) {
    TryRemoveFile(folder_.CopyPath());
    lastCopy_.clear();
  }
}

void Recovery::KeepDroppedWork() {
  if (korva_.ProjectSaved) {
    return;
  }
  const std::string path = folder_.NewDroppedPath();
  if (WriteCopy(path, korva_.Stored)) {
    HistoryLog(korva_, "Unsaved work kept: " + path);
  }
  TryRemoveFile(folder_.CopyPath());
  lastCopy_.clear();
}

bool Recovery::Restore(const std::string& path) {
  const auto copy = SplitCopy(ReadCopy(path));
  const auto format = copy ? DetectProjectFormat(copy->Project, path) : std::nullopt;
  if (!format) {
    return false;
  }
  FileNew(korva_);
  ReadProject(copy->Project, path, *format, korva_.Stored, korva_.FileNotices);
  korva_.FileNotices.clear();
  korva_.ProjectFileName = korva_.ProjectOwnName = copy->Name;
  korva_.OpenFile = FileOfCopy(*copy);
  korva_.ProjectSaved = false;
  korva_.ProjectEmpty = false;
  korva_.ProjectUnitsLocked = true;
  KeepCopy();
  return true;
}

bool Recovery::OfferCopies(MessagePort& messages) {
  for (const std::string& path : folder_.TakeAbandoned()) {
    try {
      const auto copy = SplitCopy(ReadCopy(path));
      const std::string name = copy ? copy->Name : path;
      const bool wanted =
          copy &&
          IsConfirmed(korva_, messages,
                      fmt::format("Unsaved work on {} was kept when the program ended. Restore it?", name),
                      "messages-files", MessageButtons::kYesNo, MessageIcon::kQuestion);
      if (wanted && Restore(path)) {
        SessionFolder::RenameAsKept(path);
        AnnounceOpenFile(messages);
        return true;
      }
    } catch (const RuntimeError& error) {
      HistoryLog(korva_, std::string("Recovery copy: ") + error.what());
    }
    SessionFolder::RenameAsKept(path);
  }
  return false;
}

void Recovery::RecordOpenFile() {
  recordedName_ = korva_.ProjectOwnName;
  folder_.RecordOpenFile(FullNameOfFile(recordedName_));
}

bool Recovery::IsOpenElsewhere() const {
  const std::string name = FullNameOfFile(korva_.ProjectFileName);
  return !name.empty() && folder_.IsOpenElsewhere(name);
}

void Recovery::AnnounceOpenFile(MessagePort& messages) {
  RecordOpenFile();
  if (IsOpenElsewhere()) {
    ShowMessage(korva_, messages,
                {.text = fmt::format(kOpenElsewhere, korva_.ProjectFileName),
                 .icon = MessageIcon::kExclamation,
                 .topic = "messages-files"});
  }
}

void Recovery::EndKeepingWork() {
  KeepCopy();
  folder_.End(!lastCopy_.empty());
}

DiskState CompareWithDisk(const Korva& korva) {
  const std::string& name = korva.ProjectFileName;
  if (!StateOfFile(name).exists) {
    return DiskState::kAsKnown;
  }
  if (!NamesOneFile(korva.OpenFile.Name, name)) {
    return DiskState::kAnotherFile;
  }
  if (!korva.OpenFile.ReadWhole) {
    return DiskState::kNotReadWhole;
  }
  return ReadWholeFile(name, kLargestProjectFile) == korva.OpenFile.Bytes ? DiskState::kAsKnown
                                                                          : DiskState::kChanged;
}

}  // namespace korva
