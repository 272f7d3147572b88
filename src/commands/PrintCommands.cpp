#include "commands/PrintCommands.h"

#include "commands/Attempt.h"
#include "commands/Calculate.h"
#include "commands/Formats.h"
#include "core/FileNames.h"
#include "core/Text.h"
#include "files/SafeWriter.h"
#include "services/PagePrinter.h"

namespace korva {

namespace {

void Send(Korva& korva, Ports& ports, std::string_view text) {
  const BusyPointer busy(ports.Busy);
  ports.Printer.Print(SheetsOf(text, PaperInUse(korva, ports.Printer), LocalTimeNow()),
                      FileBaseName(korva.ProjectFileName, true));
}

}  // namespace

bool LoadInputPage(Korva& korva, MessagePort& messages) {
  if (korva.ProjectEmpty && !IsConfirmed(korva, messages, "Current file is empty. Continue?", "messages-run",
                                         MessageButtons::kYesNoDefaultNo)) {
    return false;
  }
  korva.ProjectCalc = korva.Stored.ProjectInput;
  LoadOutBuf0(korva);
  return true;
}

bool PrintInputPage(Korva& korva, Ports& ports) {
  if (!LoadInputPage(korva, ports.Messages)) {
    return false;
  }
  Attempt(korva, ports.Messages, [&] { Send(korva, ports, korva.OutBuf[0]); });
  return true;
}

void PrintText(Korva& korva, Ports& ports, std::string_view text) {
  if (!ports.Printer.Choose()) {
    HistoryLog(korva, "Printing aborted");
    return;
  }
  Send(korva, ports, text);
}

void PrintPages(Korva& korva, Ports& ports, int first, int last) {
  PrintText(korva, ports, JoinPages(korva, first, last));
}

std::string JoinPages(const Korva& korva, int first, int last) {
  std::string text;
  for (int page = first; page <= last; ++page) {
    text += korva.OutBuf[page];
  }
  return text;
}

void CopyPages(Korva& korva, ClipboardPort& clipboard, std::string_view text) {
  clipboard.SetText(std::string(text));
  HistoryLog(korva, "Output copied to clipboard");
}

PaperSize PaperInUse(const Korva& korva, PrinterPort& printer) {
  return printer.Paper().value_or(PaperOfUnits(korva.Stored.ProjectUnits));
}

std::string DocumentTitle(const Korva& korva) {
  const std::string_view title = Trimmed(korva.Stored.ProjectTitle);
  return title.empty() ? FileBaseName(korva.ProjectFileName, true) : std::string(title);
}

void SaveTextAsPdf(Korva& korva, Ports& ports, std::string_view text) {
  const FileQuestion question = {.Save = true,
                                 .Title = "Save as PDF",
                                 .Folder = korva.Preferences.DataPath,
                                 .Name = FileBaseName(korva.ProjectFileName, true) + ".pdf",
                                 .DefaultExtension = "pdf",
                                 .Filters = {kPdfFiles, kAllFiles}};
  const auto file = ports.Files.ChooseFile(question);
  if (!file) {
    return;
  }
  const BusyPointer busy(ports.Busy);
  const PaperSize paper = PaperInUse(korva, ports.Printer);
  WriteFileSafely(*file,
                  Formats().PagesPdf(SheetsOf(text, paper, LocalTimeNow()), paper, DocumentTitle(korva)));
  HistoryLog(korva, "Output saved to file: " + *file);
}

}  // namespace korva
