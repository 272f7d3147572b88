// What the engine's commands need of the outside world. Each program has one implementation of each port,
// tests have scripts.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Messages.h"
#include "core/PrintedSheet.h"
#include "core/Settings.h"

namespace korva {

// Filters of several questions.
inline constexpr const char* kAllFiles = "All Files (*.*)";
inline constexpr const char* kPdfFiles = "Portable document (*.pdf)";

struct FileQuestion {
  bool Save = false;  // a name to write, asking before an existing file is taken; else a file that exists
  std::string Title = {};   // empty for the platform's own
  std::string Folder = {};  // to begin in
  std::string Name = {};    // proposed, without folder; may be empty
  std::string DefaultExtension = {};
  std::vector<std::string> Filters = {};  // each with its pattern in brackets at the end
  std::size_t ActiveFilter = 0;
};

// Asks a person for a file.
class FileChoicePort {
 public:
  virtual ~FileChoicePort() = default;
  // The full name chosen, or nothing if the person cancelled.
  virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;
};

struct TextQuestion {
  std::string Title;  // of the window
  std::string What;   // the text is
  std::string Text;   // proposed
};

// Asks a person for a value. Nothing if the person cancelled.
class ValuePort {
 public:
  virtual ~ValuePort() = default;
  // A font for the screen, of a size that the settings file takes; `font` is proposed.
  virtual std::optional<FontSettings> ChooseFont(const FontSettings& font) = 0;
  // A line of text.
  virtual std::optional<std::string> EnterText(const TextQuestion& question) = 0;
};

class ClipboardPort {
 public:
  virtual ~ClipboardPort() = default;
  virtual void SetText(std::string_view text) = 0;
  // A picture, as the bytes of a PNG file.
  virtual void SetPicture(std::string_view png) = 0;
};

// Opens a document with the program that the person's desktop has for it.
class DocumentPort {
 public:
  virtual ~DocumentPort() = default;
  // False if there is no such program.
  virtual bool Open(const std::string& file) = 0;
  // The same for a web page.
  virtual bool OpenPage(const std::string& address) = 0;
};

// Starts programs.
class ProgramPort {
 public:
  virtual ~ProgramPort() = default;
  // Starts `program`, a full name or one that the system looks up, in a window of its own and does not wait
  // for its end. False if it cannot be started.
  virtual bool Run(const std::string& program, const std::vector<std::string>& arguments) = 0;
};

// The printer of the person's choice, which holds while the program runs. All calls but Paper raise run-time
// error 482 if there is no printer.
class PrinterPort {
 public:
  virtual ~PrinterPort() = default;
  // The set-up dialog; false if it was cancelled, and then nothing has changed.
  virtual bool SetUp() = 0;
  // The print dialog; false if it was cancelled.
  virtual bool Choose() = 0;
  // The paper in it, or nothing if there is no printer.
  virtual std::optional<PaperSize> Paper() = 0;
  // Prints a document; run-time error 482 if the printer fails.
  virtual void Print(const std::vector<PrintedSheet>& sheets, const std::string& title) = 0;
};

struct FetchQuestion {
  std::string Address;
  std::uint64_t MostBytes = 0;         // a file that has more is a failure
  std::chrono::milliseconds Limit{0};  // on the clock, from the question to the end
};

struct FetchAnswer {
  bool Complete = false;
  std::string Bytes;   // if it is complete
  std::string Reason;  // if it is not, in a few words
};

// Fetches files from a server, over trusted connections only.
class FetchPort {
 public:
  // A fetch that is going on; its end is the end of the fetch, too.
  class Running {
   public:
    virtual ~Running() = default;
  };

  virtual ~FetchPort() = default;
  // Begins a fetch. `progress` is told how many bytes have come. `done` is called once, after this call has
  // returned, unless the fetch was ended before; it may end the fetch itself.
  virtual std::unique_ptr<Running> Fetch(const FetchQuestion& question,
                                         std::function<void(std::uint64_t)> progress,
                                         std::function<void(FetchAnswer)> done) = 0;
};

// The busy pointer; calls nest.
class BusyPort {
 public:
  virtual ~BusyPort() = default;
  virtual void Begin() = 0;
  virtual void End() = 0;
};

struct Ports {
  MessagePort& Messages;
  FileChoicePort& Files;
  ClipboardPort& Clipboard;
  ProgramPort& Programs;
  BusyPort& Busy;
  DocumentPort& Documents;
  PrinterPort& Printer;
  FetchPort& Fetches;
  ValuePort& Values;
};

// Shows the busy pointer while it lives.
class BusyPointer {
 public:
  explicit BusyPointer(BusyPort& port) : port_(port) { port_.Begin(); }
  ~BusyPointer() { port_.End(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  BusyPort& port_;
};

}  // namespace korva
