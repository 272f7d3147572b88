#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <string_view>

#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "files/ChildProcess.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"
#include "services/DesktopTexts.h"
#include "services/FileAssociation.h"

namespace korva {

namespace {

using Content = std::optional<std::string>;  // nothing for a file that is not there

constexpr std::uint64_t kLargestFile = std::uint64_t{4} << 20;
constexpr std::string_view kRecordHead = "KORVA-STROND file association 1\n";

// The files that an association changes, in the order in which they are written. The list of default
// programs, which makes it hold, comes last.
constexpr std::size_t kFiles = 5;
constexpr std::size_t kDefaults = kFiles - 1;

std::array<std::string, kFiles> PathsOf(const UserFolders& user) {
  const std::string icons = user.Data + "icons/hicolor/scalable/";
  return {fmt::format("{}apps/{}.svg", icons, kProgramIcon),
          fmt::format("{}mimetypes/{}.svg", icons, kProjectTypeIcon),
          user.Data + "mime/packages/korva-strond.xml",
          fmt::format("{}applications/{}", user.Data, kProgramEntry), user.Config + "mimeapps.list"};
}

std::string RecordPath(const UserFolders& user) {
  return user.Data + "korva-strond/file-association";
}

// One file: as it was before there was an association, as that has made it, and as it is.
struct Change {
  std::string Path;
  Content Before;
  std::string After;
  Content Now;
};

struct Record {
  std::string Extension;
  std::vector<Change> Changes;  // one for each of PathsOf; their Now is not kept
};

Content ContentOf(const std::string& path) {
  return StateOfFile(path).exists ? Content(ReadWholeFile(path, kLargestFile)) : std::nullopt;
}

void WriteOrRemove(const std::string& path, const Content& content) {
  if (!content) {
    RemoveFile(ResolveLinks(path));
    return;
  }
  MakeFolderPath(FolderOf(path));
  WriteFileSafely(path, *content);
}

std::string RecordText(const Record& record) {
  std::string text = fmt::format("{}{}\n", kRecordHead, record.Extension);
  for (const Change& change : record.Changes) {
    const std::string before = change.Before ? std::to_string(change.Before->size()) : "-";
    text +=
        fmt::format("{}\n{}\n{}{}\n", before, change.After.size(), change.Before.value_or(""), change.After);
  }
  return text;
}

// Reads a record, or gives nothing once it is not as it was written.
class RecordReader {
 public:
  explicit RecordReader(std::string_view text) : rest_(text) {}

  Content Line() {
    const auto end = rest_.find('\n');
    if (end == std::string_view::npos) {
      return std::nullopt;
    }
    std::string line(rest_.substr(0, end));
    rest_.remove_prefix(end + 1);
    return line;
  }

  Content Bytes(std::string_view size) {
    std::size_t count = 0;
    const auto [end, fault] = std::from_chars(size.data(), size.data() + size.size(), count);
    if (fault != std::errc() || end != size.data() + size.size() || count > rest_.size()) {
      return std::nullopt;
    }
    std::string bytes(rest_.substr(0, count));
    rest_.remove_prefix(count);
    return bytes;
  }

 private:
  std::string_view rest_;
};

std::optional<Record> RecordOf(std::string_view text, const UserFolders& user) {
  if (!text.starts_with(kRecordHead)) {
    return std::nullopt;
  }
  RecordReader reader(text.substr(kRecordHead.size()));
  Record record;
  record.Extension = reader.Line().value_or("");
  for (const std::string& path : PathsOf(user)) {
    const std::string before = reader.Line().value_or("");
    const std::string after = reader.Line().value_or("");
    Content old = before == "-" ? std::nullopt : reader.Bytes(before);
    const Content made = reader.Bytes(after);
    if ((!old && before != "-") || !made || reader.Line() != "") {
      return std::nullopt;
    }
    record.Changes.push_back({path, std::move(old), *made, std::nullopt});
  }
  return record.Extension.empty() ? std::nullopt : std::optional(record);
}

std::optional<Record> KeptRecord(const UserFolders& user) {
  const Content text = user.Data.empty() ? std::nullopt : ContentOf(RecordPath(user));
  return text ? RecordOf(*text, user) : std::nullopt;
}

// Rebuilds the desktop's lists from the files; returns the tools that are missing.
std::vector<std::string> RefreshDesktop(const UserFolders& user) {
  constexpr std::size_t kMostOutput = std::size_t{1} << 20;
  constexpr std::chrono::seconds kLimit{30};
  std::vector<std::string> missing;
  for (const auto& [tool, folder] : {std::pair{"update-mime-database", user.Data + "mime"},
                                     std::pair{"update-desktop-database", user.Data + "applications"}}) {
    const std::string path = ProgramOnSearchPath(tool);
    if (path.empty()) {
      missing.emplace_back(tool);
      continue;
    }
    const ChildResult result = RunChild({path, {folder}, kMostOutput, kLimit}, [] {});
    if (result.End != ChildEnd::kExited || result.Status != 0) {
      throw RuntimeError(ErrorNumber::kPathFileAccess, fmt::format("{} {} has failed", path, folder));
    }
  }
  return missing;
}

// The lists that the desktop which is running asks before the user's own one, as far as they give project
// files another program.
std::vector<std::string> OtherLists(const UserFolders& user) {
  const char* desktops = std::getenv("XDG_CURRENT_DESKTOP");
  std::vector<std::string> lists;
  for (const std::string& name : ListsOfDesktops(desktops == nullptr ? "" : desktops)) {
    const std::string path = user.Config + name;
    if (const Content list = ContentOf(path); list && PrefersAnotherProgram(*list)) {
      lists.push_back(path);
    }
  }
  return lists;
}

// A list that somebody has changed since, as it would be without the association; `before` is the list before
// it.
std::string WithoutAssociation(const std::string& list, const Content& before) {
  const bool wasThere = before && WithoutDefaultProgram(*before) != *before;
  return wasThere ? WithDefaultProgramsOf(*before, list) : WithoutDefaultProgram(list);
}

Record Planned(const UserFolders& user, const std::string& program, const std::string& extension,
               const AssociationPictures& pictures) {
  const auto kept = KeptRecord(user);
  Record plan{extension, {}};
  for (const std::string& path : PathsOf(user)) {
    plan.Changes.push_back({path, std::nullopt, "", ContentOf(path)});
    Change& change = plan.Changes.back();
    change.Before = change.Now;
    if (kept) {
      const Change& earlier = kept->Changes[plan.Changes.size() - 1];
      change.Before = change.Now == earlier.After ? earlier.Before : change.Now;
    }
  }
  const std::string list = plan.Changes[kDefaults].Now.value_or("");
  if (kept && list != kept->Changes[kDefaults].After && plan.Changes[kDefaults].Now) {
    plan.Changes[kDefaults].Before = WithoutAssociation(list, kept->Changes[kDefaults].Before);
  }
  const std::array<std::string, kFiles> texts = {pictures.Program, pictures.Project,
                                                 ProjectTypeText(extension, kAskedWeight),
                                                 ProgramEntryText(program), WithDefaultProgram(list)};
  for (std::size_t i = 0; i < kFiles; ++i) {
    plan.Changes[i].After = texts[i];
  }
  return plan;
}

// After a failure: each file as it was found, and the record too once all of them are.
void PutBack(const UserFolders& user, const Record& plan, const Content& record) noexcept {
  try {
    for (const Change& change : plan.Changes) {
      if (ContentOf(change.Path) != change.Now) {
        WriteOrRemove(change.Path, change.Now);
      }
    }
    WriteOrRemove(RecordPath(user), record);
    RefreshDesktop(user);
  } catch (const std::exception&) {
    return;  // the failure itself is reported; the record is there for a later attempt
  }
}

// Puts one file back as it was before, or only the programs for project files in the user's list if that was
// changed since. False if somebody has changed the file otherwise.
bool Revert(const Change& change, bool isList) {
  const Content now = ContentOf(change.Path);
  if (!now || now == change.Before) {
    return true;
  }
  if (now == change.After) {
    WriteOrRemove(change.Path, change.Before);
  } else if (isList) {
    if (const std::string list = WithoutAssociation(*now, change.Before); list != *now) {
      WriteOrRemove(change.Path, list);
    }
  }
  return now == change.After || isList;
}

}  // namespace

AssociationCaveats AssociateFileType(const UserFolders& user, const std::string& folder,
                                     const std::string& exeName, const std::string& extension,
                                     const AssociationPictures& pictures) {
  if (user.Data.empty() || user.Config.empty()) {
    throw RuntimeError(ErrorNumber::kPathNotFound, "this user has no folder for application data");
  }
  const std::string program = folder + exeName;
  if (!CanNameProgram(program)) {
    throw RuntimeError(ErrorNumber::kInvalidCall,
                       program + ": a desktop cannot start a program with \"=\", \"%\" or such in its path");
  }
  if (!StateOfFile(program).exists) {
    throw RuntimeError(ErrorNumber::kFileNotFound, program);
  }
  const Content record = ContentOf(RecordPath(user));
  const Record plan = Planned(user, program, extension, pictures);
  try {
    WriteOrRemove(RecordPath(user), RecordText(plan));
    for (const Change& change : plan.Changes) {
      if (change.Now != change.After) {
        WriteOrRemove(change.Path, change.After);
      }
    }
    return {RefreshDesktop(user), OtherLists(user)};
  } catch (...) {
    PutBack(user, plan, record);
    throw;
  }
}

std::optional<std::string> AssociatedExtension(const UserFolders& user) {
  try {
    const auto record = KeptRecord(user);
    return record ? std::optional(record->Extension) : std::nullopt;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

std::vector<std::string> DissociateFileType(const UserFolders& user) {
  const auto record = KeptRecord(user);
  if (!record) {
    throw RuntimeError(ErrorNumber::kFileNotFound, RecordPath(user) + ": not as this program writes it");
  }
  std::vector<std::string> left;
  for (std::size_t i = kFiles; i-- > 0;) {
    if (!Revert(record->Changes[i], i == kDefaults)) {
      left.push_back(record->Changes[i].Path);
    }
  }
  RefreshDesktop(user);
  WriteOrRemove(RecordPath(user), std::nullopt);
  return left;
}

}  // namespace korva
