#include "commands/ExternalViewer.h"

#include "commands/Attempt.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"

namespace korva {

namespace {

// A file of this size is not handed to an editor; the copy is made in memory.
constexpr std::uint64_t kLargestViewedFile = std::uint64_t{256} << 20;

bool NamesFile(std::string_view text) {
  return text.find('/') != std::string_view::npos && IsFile(std::string(text));
}

// How much of `text` names a program file, 0 if no beginning of it does.
std::size_t LengthOfProgramFile(std::string_view text) {
  for (std::size_t end = text.size(); end > 0;) {
    if (NamesFile(text.substr(0, end))) {
      return end;
    }
    const auto blank = text.rfind(' ', end - 1);
    end = blank == std::string_view::npos ? 0 : blank;
  }
  return 0;
}

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  bool quoted = false;
  bool inWord = false;
  for (const char c : text) {
    if (c == ' ' && !quoted) {
      inWord = false;
      continue;
    }
    if (!inWord) {
      words.emplace_back();
      inWord = true;
    }
    if (c == '"') {
      quoted = !quoted;
    } else {
      words.back() += c;
    }
  }
  return words;
}

std::string ScratchName(const Folders& places) {
  return places.TempRoot + "~tmpbr.tmp";
}

void CopyToScratch(const Korva& korva, Ports& ports, const std::string& file) {
  const BusyPointer busy(ports.Busy);
  const std::string text = WithFileLineEnds(ReadWholeFile(file, kLargestViewedFile));
  TryMakeFolderPath(korva.Places.TempRoot);  // writing reports what went wrong
  WriteScratchFile(ScratchName(korva.Places), text);
}

void StartViewer(const Korva& korva, Ports& ports) {
  const std::string& setting = korva.Preferences.ExternalEditor;
  ProgramCall call = CallOfEditor(setting);
  call.Arguments.push_back(ScratchName(korva.Places));
  if (call.Program.empty() || !ports.Programs.Run(call.Program, call.Arguments)) {
    throw RuntimeError(NamesFile(call.Program) ? ErrorNumber::kPermissionDenied : ErrorNumber::kFileNotFound,
                       "the external editor of the settings cannot be started: " + setting);
  }
}

}  // namespace

ProgramCall CallOfEditor(const std::string& setting) {
  const std::string_view text = Trimmed(setting);
  const std::size_t length = LengthOfProgramFile(text);
  ProgramCall call{std::string(text.substr(0, length)), WordsOf(text.substr(length))};
  if (length == 0 && !call.Arguments.empty()) {
    call.Program = call.Arguments.front();
    call.Arguments.erase(call.Arguments.begin());
  }
  return call;
}

std::optional<std::string> ViewerRemark(std::string_view setting) {
  const std::string program = CallOfEditor(std::string(setting)).Program;
  const bool there = NamesFile(program) || !ProgramOnSearchPath(program).empty();
  return program.empty() || there ? std::nullopt : std::optional<std::string>("not found on this machine");
}

std::optional<std::string> ChooseEditor(Korva& korva, FileChoicePort& files) {
  korva.Preferences.FileExtension = "EXE";
  return files.ChooseFile({.Title = "Select External Editor",
                           .Filters = {kAllFiles, "Editor Programs (*.EXE)"},
                           .ActiveFilter = 1});
}

bool ViewExternally(Korva& korva, Ports& ports, const std::string& file) {
  bool copied = false;
  bool started = false;
  Attempt(korva, ports.Messages, [&] {
    if (!StateOfFile(file).exists) {
      ShowMessage(korva, ports.Messages,
                  {.text = "Requested File not found: " + file, .topic = "messages-documents"});
      return;
    }
    CopyToScratch(korva, ports, file);
    copied = true;
  });
  if (copied) {
    Attempt(korva, ports.Messages, [&] {
      StartViewer(korva, ports);
      started = true;
    });
  }
  return started;
}

}  // namespace korva
