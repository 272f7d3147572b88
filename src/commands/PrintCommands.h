// What goes to paper: the inputs from the main window, the output pages from the results window, and both as
// PDF.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/Korva.h"
#include "core/Ports.h"

namespace korva {

// Copies the project to the working copy and writes page 0 from it, after a question if the project is empty.
// False if the person does not want that.
bool LoadInputPage(Korva& korva, MessagePort& messages);

// "Print": sends page 0 to the printer, without a dialog. False if the person did not want an empty project
// printed; a printer that fails is reported.
bool PrintInputPage(Korva& korva, Ports& ports);

// Asks for the printer and prints `text`. If that is cancelled, the history says so. Run-time error 482.
void PrintText(Korva& korva, Ports& ports, std::string_view text);

// The same for the output pages from `first` to `last`.
void PrintPages(Korva& korva, Ports& ports, int first, int last);

// The output pages from `first` to `last`, one text without anything between them.
std::string JoinPages(const Korva& korva, int first, int last);

// "Copy All" of pages: `text` goes to the clipboard, and the history says so.
void CopyPages(Korva& korva, ClipboardPort& clipboard, std::string_view text);

// The paper in the printer; without a printer the paper that the project's units ask for.
PaperSize PaperInUse(const Korva& korva, PrinterPort& printer);

// What a document of the project is called: its title, or its file's name where it has none.
std::string DocumentTitle(const Korva& korva);

// "Save as PDF": asks for a name and writes `text` as it would be printed. Run-time errors of writing.
void SaveTextAsPdf(Korva& korva, Ports& ports, std::string_view text);

}  // namespace korva
