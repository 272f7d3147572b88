#include <gtest/gtest.h>

#include <cstdlib>

#include "core/Text.h"
#include "services/PagePrinter.h"
#include "services/PagesPdf.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

std::tm Moment() {
  std::tm now = {};
  now.tm_year = 126;
  now.tm_mon = 2;
  now.tm_mday = 5;
  now.tm_hour = 14;
  now.tm_min = 7;
  now.tm_sec = 9;
  return now;
}

std::vector<PrintedSheet> A4Sheets(std::string_view text) {
  return SheetsOf(text, kA4Paper, Moment());
}

// The lines of a sheet without its header.
std::vector<std::string> Body(const PrintedSheet& sheet) {
  std::vector<std::string> lines;
  for (const SheetText& text : sheet.Texts) {
    if (!text.Bold) {
      lines.push_back(text.Text);
    }
  }
  return lines;
}

std::string Lines(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) {
    text += std::to_string(i) + "\r\n";
  }
  return text;
}

TEST(LocalTimeNow, IsThatOfTheEnvironmentWhereABuildAsksForIt) {
  ::setenv("SOURCE_DATE_EPOCH", "1676764800", 1);
  EXPECT_EQ(LocalTimeNow().tm_year, 123);
  EXPECT_EQ(LocalTimeNow().tm_yday, 49);
  for (const char* other : {"", "soon", "1676764800x", "-1", "99999999999999"}) {
    ::setenv("SOURCE_DATE_EPOCH", other, 1);
    EXPECT_GT(LocalTimeNow().tm_year, 123) << other;
  }
  ::unsetenv("SOURCE_DATE_EPOCH");
}

TEST(PagePrinter, HeaderRuleAndFirstLine) {
  const auto sheets = A4Sheets("only line");
  ASSERT_EQ(sheets.size(), 1U);
  ASSERT_EQ(sheets[0].Texts.size(), 3U);
  const SheetText& title = sheets[0].Texts[0];
  EXPECT_EQ(title.Text, "KORVA-STROND Version: 1.1.05, 3/5/2026, 14:07:09");
  EXPECT_TRUE(title.Bold);
  EXPECT_EQ(title.X, 1152);
  EXPECT_EQ(title.Y, 576);
  const SheetText& page = sheets[0].Texts[1];
  EXPECT_EQ(page.Text, "Page: 1");
  EXPECT_TRUE(page.Bold);
  EXPECT_EQ(page.X + 7 * 108, 11906 - 1152);
  EXPECT_EQ(page.Y, 576);
  ASSERT_EQ(sheets[0].Rules.size(), 1U);
  const SheetRule& rule = sheets[0].Rules[0];
  EXPECT_EQ(rule.X0, 1152);
  EXPECT_EQ(rule.X1, 11906 - 1152);
  EXPECT_GE(rule.Y, 576 + 204);
  const SheetText& line = sheets[0].Texts[2];
  EXPECT_EQ(line.Text, "only line");
  EXPECT_FALSE(line.Bold);
  EXPECT_EQ(line.X, 1152);
  EXPECT_EQ(line.Y, rule.Y + 50);
}

// A line is the last of its sheet when its lower edge has passed the page end, 1872 above the paper's.
TEST(PagePrinter, SheetsBreakBehindThePageEnd) {
  for (const auto& [paper, room] : {std::pair{kA4Paper, 70}, {kLetterPaper, 65}}) {
    const auto full = SheetsOf(Lines(room), paper, Moment());
    ASSERT_EQ(full.size(), 1U) << "no sheet without a line";
    const int below = full[0].Texts.back().Y + 204;
    EXPECT_GT(below, paper.Height - 1872);
    EXPECT_LE(below - 204, paper.Height - 1872);

    const auto sheets = SheetsOf(Lines(2 * room + 1), paper, Moment());
    ASSERT_EQ(sheets.size(), 3U);
    EXPECT_EQ(Body(sheets[1]).front(), std::to_string(room + 1));
    EXPECT_EQ(Body(sheets[2]), std::vector{std::to_string(2 * room + 1)});
    EXPECT_EQ(sheets[2].Texts[0].Text, sheets[0].Texts[0].Text);
    EXPECT_EQ(sheets[2].Texts[1].Text, "Page: 3");
    EXPECT_EQ(sheets[1].Texts[2].Y, sheets[0].Texts[2].Y);
  }
}

TEST(PagePrinter, TenLinesThatEndExactlyThereHaveNotPassedThePageEnd) {
  const int firstLine = A4Sheets("x").at(0).Texts[2].Y;
  const PaperSize paper = {kA4Paper.Width, firstLine + 10 * 204 + 1872};
  EXPECT_EQ(SheetsOf(Lines(11), paper, Moment()).size(), 1U);
  EXPECT_EQ(SheetsOf(Lines(11) + "\r\n\r\n", paper, Moment()).size(), 1U) << "empty lines behind the text";
  EXPECT_EQ(SheetsOf(Lines(12), paper, Moment()).size(), 2U);
}

TEST(PagePrinter, LongLinesGoOnInTheNext) {
  const std::string word(60, 'w');
  const auto body = [](std::string_view text) { return Body(A4Sheets(text).at(0)); };
  using Strings = std::vector<std::string>;
  EXPECT_EQ(body("  " + word + "   " + word), (Strings{"  " + word, word}));
  EXPECT_EQ(body(std::string(88, 'a') + " b"), (Strings{std::string(88, 'a'), "b"})) << "88 fit";
  EXPECT_EQ(body(std::string(89, 'a')), (Strings{std::string(88, 'a'), "a"}));
  EXPECT_EQ(body("  " + std::string(90, 'a')), (Strings{"  " + std::string(86, 'a'), "aaaa"}));
  EXPECT_EQ(body("a" + std::string(200, ' ')), (Strings{"a"}));
  std::string wide;
  for (int i = 0; i < 89; ++i) {
    wide += "\u00b5";
  }
  EXPECT_EQ(body(wide), (Strings{wide.substr(0, 176), "\u00b5"})) << "characters count, not bytes";
  EXPECT_EQ(Body(SheetsOf(std::string(93, 'a'), kLetterPaper, Moment()).at(0)).at(1), "a");
}

TEST(PagePrinter, LineEndsAndControlCharacters) {
  const auto sheet = A4Sheets("a\r\n\r\nb\rc\nd\fe\x7f\tf\t\x1bg").at(0);
  EXPECT_EQ(Body(sheet), (std::vector<std::string>{"a", "b", "c", "d e     f        g"}));
  EXPECT_EQ(sheet.Texts[3].Y, sheet.Texts[2].Y + 2 * 204) << "an empty line takes its place";
  EXPECT_EQ(Body(A4Sheets("\u00b5\tb").at(0)).at(0), "\u00b5       b");
  EXPECT_EQ(Body(A4Sheets("no \xff text").at(0)).at(0), "no \u00ff text");
  EXPECT_EQ(Body(A4Sheets("a\uffffb\u0085c").at(0)).at(0), "a b c");
  EXPECT_EQ(Body(A4Sheets(std::string_view("a\0b", 3)).at(0)).at(0), "a b");
}

TEST(PagePrinter, ModesCallByCall) {
  PagePrinter printer(kA4Paper, Moment());
  ExpectError(ErrorNumber::kInvalidCall, [&] { printer.PrintOut(PrintMode::kLine, "too early"); });
  for (int document = 0; document < 2; ++document) {  // the second begins with page 1 again
    printer.PrintOut(PrintMode::kBegin, "");
    printer.PrintOut(PrintMode::kLine, "one");
    printer.PrintOut(PrintMode::kNewPage, "");
    printer.PrintOut(PrintMode::kText, "two\r\nthree");
    printer.PrintOut(static_cast<PrintMode>(8), "");
    ExpectError(ErrorNumber::kInvalidCall, [&] { printer.PrintOut(static_cast<PrintMode>(5), ""); });
    printer.PrintOut(PrintMode::kEnd, "");
    ASSERT_EQ(printer.Ended().size(), 3U);
    EXPECT_EQ(Body(printer.Ended()[1]).size(), 2U);
    EXPECT_EQ(printer.Ended()[2].Texts[1].Text, "Page: 3");
  }
}

// Text that fills a Letter sheet of 65 lines but for the last `left`, an empty line behind it.
std::string AllBut(int left) {
  return Lines(64 - left) + "\r\n";
}

TEST(PagePrinter, ASheetEndsBeforeAHeadingOrATableThatItWouldCut) {
  const std::string table = "[A HEADING]\r\n\r\nHEAD\r\n (ft)\r\nrow 1\r\nrow 2\r\n";
  const std::string nested = "[ONE]\r\n\r\n[Two]\r\nvalue\r\n";
  const std::string apart = "[LOADS]\r\nHEAD\r\nrow 1\r\n\r\nrow 2\r\n";
  for (const auto& [text, lines] :
       {std::pair{table, 6}, {nested, 4}, {apart, 5}, {std::string("a\r\nb\r\n"), 2}}) {
    for (int left = 0; left < lines; ++left) {
      const auto sheets = SheetsOf(AllBut(left) + text, kLetterPaper, Moment());
      ASSERT_EQ(sheets.size(), 2U);
      EXPECT_EQ(Body(sheets[0]).back(), std::to_string(64 - left));
      EXPECT_EQ(sheets[1].Texts[2].Text, text.substr(0, text.find("\r\n"))) << left;
    }
    EXPECT_EQ(SheetsOf(AllBut(lines) + text, kLetterPaper, Moment()).size(), 1U) << "it fits";
  }
}

TEST(PagePrinter, WhatBeginsWithAHeadingIsCutBeforeTheNext) {
  const std::string lists = "[ONE]\r\na\r\nb\r\n[TWO]\r\nc\r\n";  // no empty line between them
  const auto sheets = SheetsOf(AllBut(4) + lists, kLetterPaper, Moment());
  ASSERT_EQ(sheets.size(), 2U);
  EXPECT_EQ(Body(sheets[0]).back(), "b");
  EXPECT_EQ(Body(sheets[1]), (std::vector<std::string>{"[TWO]", "c"}));
}

TEST(PagePrinter, OfWhatIsVeryLongOnlyTheBeginningStaysTogether) {
  const std::string list = "[LIST]\r\n" + Lines(30);
  EXPECT_EQ(Body(SheetsOf(AllBut(4) + list, kLetterPaper, Moment()).at(0)).back(), "3");
  EXPECT_EQ(Body(SheetsOf(AllBut(3) + list, kLetterPaper, Moment()).at(1)).front(), "[LIST]");
  constexpr PaperSize kStrip = {12240, 3400};  // takes no heading with its rows
  const auto strips = SheetsOf("x\r\n\r\n[A]\r\n1\r\n2\r\n3\r\n4\r\n", kStrip, Moment());
  EXPECT_EQ(Body(strips.at(0)).front(), "x");
  EXPECT_EQ(Body(strips.back()).back(), "4");
}

TEST(PagePrinter, NoLineIsLostOrAddedByTheBreaks) {
  const std::string text = "\r\n[A]\r\n\r\n\r\n" + Lines(40) + "\r\n[B]\r\n" + Lines(40) + "\r\nend";
  std::vector<std::string> lines;
  std::size_t height = 0;
  for (const PrintedSheet& sheet : A4Sheets(text)) {
    const auto body = Body(sheet);
    lines.insert(lines.end(), body.begin(), body.end());
    height += static_cast<std::size_t>((sheet.Texts.back().Y - sheet.Rules[0].Y - 50) / 204 + 1);
  }
  EXPECT_EQ(lines.size(), 83U);
  EXPECT_EQ(height, 88U) << "the empty lines take their place";
}

TEST(PagePrinter, NothingOfTheHeaderIsLostOnNarrowPaper) {
  constexpr PaperSize kA6 = {5953, 8391};
  const auto sheet = SheetsOf("text", kA6, Moment()).at(0);
  int y = 0;
  int end = 0;
  for (const SheetText& text : sheet.Texts) {
    EXPECT_TRUE(text.Y > y || (text.Y == y && text.X > end)) << "over each other: " << text.Text;
    y = text.Y;
    end = text.X + static_cast<int>(CharacterCount(text.Text)) * 108;
    EXPECT_LE(end, kA6.Width - 1152) << text.Text;
  }
  EXPECT_LT(sheet.Texts[sheet.Texts.size() - 2].Y, sheet.Rules.at(0).Y);
}

TEST(PagesPdf, HasAPageForEachSheetInTheSizeOfThePaper) {
  const std::string pdf = PagesPdf(A4Sheets(Lines(150)), kA4Paper, "panel \xff");
  EXPECT_TRUE(pdf.starts_with("%PDF"));
  EXPECT_NE(pdf.find("/Count 3\n"), std::string::npos);
  EXPECT_NE(pdf.find("[ 0 0 595.3 841.9 ]"), std::string::npos) << "in points";
}

}  // namespace
}  // namespace korva
