#include <gtest/gtest.h>

#include "workbook/DateFormat.h"

namespace korva {
namespace {

TEST(IsDateFormat, TellsDatesFromNumbers) {
  for (const char* code : {"yyyy\\-mm\\-dd;@", "[$-409]d-mmm-yy", "h:mm AM/PM", "[h]:00", "[mm]",
                           "MM/DD/YYYY", "\"on\" d", "_-d", "ss.000", "[Red]dddd"}) {
    EXPECT_TRUE(IsDateFormat(code)) << code;
  }
  for (const char* code :
       {"General", "0.00E+00", "#,##0.00;[Red]-#,##0.00", "0\" days\"", "0\\d", "[Red]0", "_d0", "*s0",
        "0.00;d", "@", "", "\"", "[", "[]0", "\\", "[$USD-409]#,##0", "\"d", "[h"}) {
    const bool brokenElapsed = std::string_view(code) == "[h";
    EXPECT_EQ(IsDateFormat(code), brokenElapsed) << code;
  }
  EXPECT_TRUE(IsBuiltInDateFormat(14) && IsBuiltInDateFormat(22) && IsBuiltInDateFormat(47));
  EXPECT_FALSE(IsBuiltInDateFormat(0) || IsBuiltInDateFormat(13) || IsBuiltInDateFormat(37) ||
               IsBuiltInDateFormat(49));
}

// The days as the makers of spreadsheets count them, worked by hand.
TEST(DateText, CountsAsWorkbooksDo) {
  const auto text = [](double days, DateSystem system = DateSystem::k1900) {
    return DateText(days, system).value_or("none");
  };
  EXPECT_EQ(text(1), "1900-01-01");
  EXPECT_EQ(text(59), "1900-02-28");
  EXPECT_EQ(text(60), "1900-02-29") << "a day that the old count holds";
  EXPECT_EQ(text(61), "1900-03-01");
  EXPECT_EQ(text(45351), "2024-02-29");
  EXPECT_EQ(text(2958465), "9999-12-31");
  EXPECT_EQ(text(2958465.9999999), "none") << "would be shown as the year 10000";
  EXPECT_EQ(text(2958466), "none");
  EXPECT_EQ(text(-1), "none");
  EXPECT_EQ(text(0.25), "06:00:00");
  EXPECT_EQ(text(0.9999999), "1900-01-01");
  EXPECT_EQ(text(45351.999999999), "2024-03-01");
  EXPECT_EQ(text(45351.75001), "2024-02-29T18:00:01");
  EXPECT_EQ(text(1, DateSystem::k1904), "1904-01-02");
  EXPECT_EQ(text(60, DateSystem::k1904), "1904-03-01");
  EXPECT_EQ(text(45351 - 1462, DateSystem::k1904), "2024-02-29");
  EXPECT_EQ(text(2957003, DateSystem::k1904), "9999-12-31");
}

}  // namespace
}  // namespace korva
