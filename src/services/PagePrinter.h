// Lays text out on sheets. All printed text of the program passes through it.
#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "core/PrintedSheet.h"
#include "core/UnitSystem.h"

namespace korva {

enum class PrintMode {
  kLine = 0,
  kBegin = 1,
  kNewPage = 2,
  kText = 3,
  kEnd = 4,
  kNextPage = 8,  // a second number for kNewPage
};

// Keeps the document in progress from call to call.
class PagePrinter {
 public:
  // `now` is the local time that the page headers show.
  PagePrinter(PaperSize paper, const std::tm& now) : paper_(paper), now_(now) {}

  // Run-time error 5 for another mode, and for any but kBegin while no document is in progress.
  void PrintOut(PrintMode mode, std::string_view text);

  // Whether `text` would begin on this sheet and end on the next, and has room on one alone.
  bool WouldCut(std::string_view text) const;

  // The last document that was ended.
  const std::vector<PrintedSheet>& Ended() const { return ended_; }

 private:
  void Begin();
  void Line(std::string_view text);
  void NewPage();
  void Header();
  void Put(std::string text, bool bold);
  // A line of text as lines of the sheet.
  std::vector<std::string> PrintedLines(std::string_view text) const;
  // How many lines a sheet takes from `y` on.
  std::size_t LinesFrom(int y) const;
  int RightMargin() const;
  std::size_t Columns() const;

  PaperSize paper_;
  std::tm now_;
  std::string date_;
  std::string time_;
  int page_ = 0;
  int y_ = 0;
  int bodyTop_ = 0;  // below the header
  bool begun_ = false;
  std::vector<PrintedSheet> sheets_;
  std::vector<PrintedSheet> ended_;
};

// `text` as a document of its own: begin, text, end. A sheet ends early rather than between a heading and
// what it heads, or within a table or a paragraph.
std::vector<PrintedSheet> SheetsOf(std::string_view text, PaperSize paper, const std::tm& now);

// The paper of a country with those units: A4 for metric ones, else Letter.
PaperSize PaperOfUnits(UnitSystem units);

// The time now; that of the variable SOURCE_DATE_EPOCH, in UTC, where a build asks for the same bytes each
// time.
std::tm LocalTimeNow();

}  // namespace korva
