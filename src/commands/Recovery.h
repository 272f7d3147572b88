// Unsaved work outlives a crash, a power cut and a hasty New; and nobody else's work is replaced unseen.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/Korva.h"
#include "core/Messages.h"
#include "files/SessionFolder.h"

namespace korva {

inline constexpr std::string_view kOpenElsewhere =
    "{} is open in another window of this program. What is saved in one window replaces what was saved in the other.";

class Recovery {
 public:
  explicit Recovery(Korva& korva) : korva_(korva), folder_(korva.Places.StateFolder) {}

  // What a form holds that is not in the project yet; asked for each copy. It belongs to the open project.
  std::function<std::optional<StoredProject>()> Draft;

  // Keeps a copy of unsaved work if it has changed since the last one, and removes the copy of saved work. A
  // failure is logged once. A copy has the project's own full name, whatever name has been chosen for the
  // next project meanwhile. Other sessions are told if that name is another one than before.
  void KeepCopy();

  // Keeps unsaved work that is about to be dropped; it is offered at the next start.
  void KeepDroppedWork();

  // Offers what ended sessions left, the newest first, until the person takes one: it is then the open
  // project, unsaved, under its old name. A copy that was declined is put aside.
  bool OfferCopies(MessagePort& messages);

  // Tells other sessions which file is open here, and the person if another has it open too.
  void AnnounceOpenFile(MessagePort& messages);
  // The first half of that.
  void RecordOpenFile();
  // Whether another session has the file ProjectFileName open.
  bool IsOpenElsewhere() const;

  // After the person has saved or given up the work.
  void EndCleanly() { folder_.End(false); }
  // Before the program ends without a question: unsaved work is offered at the next start.
  void EndKeepingWork();

 private:
  bool WriteCopy(const std::string& path, const StoredProject& project);
  bool Restore(const std::string& path);

  Korva& korva_;
  SessionFolder folder_;
  std::string lastCopy_;
  std::string recordedName_;  // the project that other sessions know of
  bool failureLogged_ = false;
};

enum class DiskState {
  kAsKnown,       // missing, or just as this program read or wrote it
  kNotReadWhole,  // more stands in it than was read
  kChanged,       // somebody else has written it
  kAnotherFile,   // a file that this program has not opened
};

// What saving the project under its name would replace.
DiskState CompareWithDisk(const Korva& korva);

}  // namespace korva
