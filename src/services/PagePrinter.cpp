#include "services/PagePrinter.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "core/Encoding.h"
#include "core/Project.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "core/Version.h"
#include "services/SheetPieces.h"

namespace korva {

namespace {

constexpr int kMargin = 1152;
constexpr int kHeaderTop = kMargin / 2;
constexpr int kBelowPageEnd = 1872;
constexpr int kBelowRule = 50;
constexpr std::size_t kTabColumns = 8;

// Characters that print nothing or that no font has: control characters, and those that no text may hold.
bool IsUnprintable(std::uint32_t character) {
  return character < 0x20 || (character >= 0x7f && character < 0xa0) ||
         (character >= 0xfdd0 && character <= 0xfdef) || (character & 0xfffe) == 0xfffe;
}

// The number of a valid character.
std::uint32_t NumberOf(std::string_view character) {
  const auto lead = static_cast<unsigned char>(character[0]);
  std::uint32_t number = character.size() == 1 ? lead : lead & (0xffU >> (character.size() + 1));
  for (const char byte : character.substr(1)) {
    number = (number << 6U) | (static_cast<unsigned char>(byte) & 0x3fU);
  }
  return number;
}

// One line as it prints: tabs filled up with blanks, blanks for what prints nothing and none at the end.
std::string Printable(std::string_view line) {
  const std::string valid = TextFromFileBytes(line);
  std::string printable;
  std::size_t column = 0;
  for (std::string_view rest = valid; !rest.empty(); ++column) {
    const std::string_view character = rest.substr(0, BytesOfCharacters(rest, 1));
    rest.remove_prefix(character.size());
    if (character == "\t") {
      const std::size_t blanks = kTabColumns - column % kTabColumns;
      printable.append(blanks, ' ');
      column += blanks - 1;
    } else if (IsUnprintable(NumberOf(character))) {
      printable += ' ';
    } else {
      printable += character;
    }
  }
  return printable.substr(0, printable.find_last_not_of(' ') + 1);
}

// Takes what fits into `columns` from the front of `rest`, up to a blank if there is one after a word.
std::string TakePiece(std::string_view& rest, std::size_t columns) {
  if (BytesOfCharacters(rest, columns) == rest.size()) {
    std::string whole(rest);
    rest = {};
    return whole;
  }
  const std::size_t word = rest.find_first_not_of(' ');
  std::size_t end = rest.substr(0, BytesOfCharacters(rest, columns + 1)).rfind(' ');
  std::size_t next = 0;
  if (end == std::string_view::npos || end < word) {
    end = next = BytesOfCharacters(rest, columns);
  } else {
    next = rest.find_first_not_of(' ', end);
  }
  const std::string_view piece = rest.substr(0, end);
  rest = rest.substr(next);
  return std::string(piece.substr(0, piece.find_last_not_of(' ') + 1));
}

}  // namespace

void PagePrinter::PrintOut(PrintMode mode, std::string_view text) {
  if (!begun_ && mode != PrintMode::kBegin) {
    throw RuntimeError(ErrorNumber::kInvalidCall, "printing without a document");
  }
  switch (mode) {
    case PrintMode::kLine:
      Line(text);
      return;
    case PrintMode::kBegin:
      Begin();
      return;
    case PrintMode::kNewPage:
    case PrintMode::kNextPage:
      NewPage();
      return;
    case PrintMode::kText:
      while (!text.empty()) {
        const SplitLine split = TakeLine(text);
        Line(split.line);
        text = split.rest;
      }
      return;
    case PrintMode::kEnd:
      ended_ = std::move(sheets_);
      begun_ = false;
      return;
  }
  throw RuntimeError(ErrorNumber::kInvalidCall, "printing in an unknown mode");
}

void PagePrinter::Begin() {
  date_ = fmt::format("{}/{}/{}", now_.tm_mon + 1, now_.tm_mday, now_.tm_year + 1900);
  time_ = fmt::format("{:02}:{:02}:{:02}", now_.tm_hour, now_.tm_min, now_.tm_sec);
  page_ = 1;
  begun_ = true;
  sheets_.assign(1, {});
  Header();
}

// What is too long for a line goes on in the next one.
std::vector<std::string> PagePrinter::PrintedLines(std::string_view text) const {
  const std::string line = Printable(text);
  std::vector<std::string> lines;
  std::string_view rest = line;
  do {
    lines.push_back(TakePiece(rest, Columns()));
  } while (!rest.empty());
  return lines;
}

// A full page is left when there is more to print on it, so that no document ends with an empty sheet.
void PagePrinter::Line(std::string_view text) {
  for (std::string& line : PrintedLines(text)) {
    if (LinesFrom(y_) == 0) {
      NewPage();
    }
    Put(std::move(line), false);
  }
}

std::size_t PagePrinter::LinesFrom(int y) const {
  const int room = paper_.Height - kBelowPageEnd - y;
  return room < 0 ? 0 : static_cast<std::size_t>(room / kPrintLineHeight) + 1;
}

bool PagePrinter::WouldCut(std::string_view text) const {
  std::size_t lines = 0;
  while (!text.empty()) {
    const SplitLine split = TakeLine(text);
    lines += PrintedLines(split.line).size();
    text = split.rest;
  }
  return lines > LinesFrom(y_) && lines <= LinesFrom(bodyTop_);
}

void PagePrinter::NewPage() {
  ++page_;
  sheets_.emplace_back();
  Header();
}

// On narrow paper it takes more than one line.
void PagePrinter::Header() {
  y_ = kHeaderTop;
  const std::string title =
      fmt::format("{} Version: {}, {}, {}", ExeName, ProgramVersionText(true), date_, time_);
  for (std::string_view rest = title; !rest.empty();) {
    Put(TakePiece(rest, Columns()), true);
  }
  const std::string page = fmt::format("Page: {}", page_);
  const std::size_t used = CharacterCount(sheets_.back().Texts.back().Text) + 1;
  if (used + page.size() <= Columns()) {
    y_ -= kPrintLineHeight;
  }
  Put(page, true);
  sheets_.back().Texts.back().X = RightMargin() - static_cast<int>(page.size()) * kPrintCharacterWidth;
  sheets_.back().Rules.push_back({kMargin, RightMargin(), y_});
  y_ += kBelowRule;
  bodyTop_ = y_;
}

// An empty line takes its place and leaves no record.
void PagePrinter::Put(std::string text, bool bold) {
  if (!text.empty()) {
    sheets_.back().Texts.push_back({kMargin, y_, std::move(text), bold});
  }
  y_ += kPrintLineHeight;
}

int PagePrinter::RightMargin() const {
  return paper_.Width - kMargin;
}

std::size_t PagePrinter::Columns() const {
  constexpr int kLeast = 20;  // on a strip of paper, texts run into the margin
  return static_cast<std::size_t>(std::max(kLeast, (RightMargin() - kMargin) / kPrintCharacterWidth));
}

std::vector<PrintedSheet> SheetsOf(std::string_view text, PaperSize paper, const std::tm& now) {
  PagePrinter printer(paper, now);
  printer.PrintOut(PrintMode::kBegin, {});
  const std::size_t end = text.find_last_not_of(" \r\n") + 1;  // empty lines after it ask for no sheet
  for (const TextPiece& piece : PiecesOf(text.substr(0, end))) {
    if (printer.WouldCut(piece.Kept)) {
      printer.PrintOut(PrintMode::kNewPage, {});
    }
    printer.PrintOut(PrintMode::kText, piece.Text);
  }
  printer.PrintOut(PrintMode::kEnd, {});
  return printer.Ended();
}

PaperSize PaperOfUnits(UnitSystem units) {
  return units == kMetric ? kA4Paper : kLetterPaper;
}

std::tm LocalTimeNow() {
  const char* fixed = std::getenv("SOURCE_DATE_EPOCH");
  const std::string_view seconds = fixed != nullptr ? fixed : "";
  std::uint32_t moment = 0;
  const auto read = std::from_chars(seconds.data(), seconds.data() + seconds.size(), moment);
  if (!seconds.empty() && read.ec == std::errc() && read.ptr == seconds.data() + seconds.size()) {
    return fmt::gmtime(static_cast<std::time_t>(moment));
  }
  return fmt::localtime(std::time(nullptr));
}

}  // namespace korva
