#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "input/UnitTables.h"

namespace korva {
namespace {

using Texts = std::vector<std::string>;

Texts RowOf(UnitQuantity quantity, int source, double x) {
  Texts texts;
  for (const double value : ConvertUnits(quantity, source, x)) {
    texts.push_back(ShortestText(value));
  }
  return texts;
}

TEST(UnitTables, ShowTheShortestTextsThatReadBack) {
  EXPECT_EQ(RowOf(UnitQuantity::kLength, 1, 1), (Texts{"12", "1", "30.48", "0.3048"}));
  EXPECT_EQ(RowOf(UnitQuantity::kLoad, 0, 0), (Texts{"0", "0", "0", "0", "0"}));
  EXPECT_EQ(RowOf(UnitQuantity::kLoad, 1, 1)[2], "8.896440978786435");
}

TEST(UnitTables, ThePsfRowStandsAsItAlwaysDid) {
  const Texts row = RowOf(UnitQuantity::kStress, 2, 1);
  EXPECT_EQ(row[0], "6.944444444444444E-06");
  EXPECT_EQ(row[1], "0.006944444444444444");
  EXPECT_EQ(row[2], "1");
}

// From every unit to every other and back. The psf row names two units crosswise.
TEST(UnitTables, GoThereAndBack) {
  for (const UnitTab& tab : UnitTabs()) {
    const int units = static_cast<int>(tab.Units.size());
    for (int from = 0; from < units; ++from) {
      const auto row = ConvertUnits(tab.Quantity, from, 7.25);
      for (int to = 0; to < units; ++to) {
        const bool crossed = tab.Quantity == UnitQuantity::kStress && (from == 2 || to == 2) && to < 2;
        if (!crossed && !(tab.Quantity == UnitQuantity::kStress && to == 2)) {
          const double back = ConvertUnits(tab.Quantity, to,
                                           row[static_cast<std::size_t>(to)])[static_cast<std::size_t>(from)];
          EXPECT_NEAR(back, 7.25, 1e-8) << tab.Word << " " << from << " " << to;
        }
      }
    }
  }
}

TEST(UnitTables, RefuseWhatHasNoValue) {
  EXPECT_THROW(ConvertUnits(UnitQuantity::kStress, 4, 1e305), RuntimeError);
  EXPECT_THROW(ConvertUnits(UnitQuantity::kLength, 4, 1), RuntimeError);
}

TEST(UnitTables, ReadNumbersAndUnits) {
  struct Reading {
    const char* Text;
    double Value;
    bool Whole;
    const char* Note;
  };
  for (const Reading& row : {Reading{"  12.5ft", 12.5, false, "counts as 12.5"},
                             {"\t\u221212.5\n", -12.5, true, ""},
                             {"1,5", 1.5, true, ""},
                             {"1,200", 1.2, true, "counts as 1.2"},
                             {"1,234.5", 1, false, "counts as 1"},
                             {"1,2,3", 1.2, false, "counts as 1.2"},
                             {"", 0, false, ""},
                             {"abc", 0, false, "counts as 0"}}) {
    const CalculatorNumber read = ReadCalculatorNumber(row.Text);
    EXPECT_EQ(read.Value, row.Value) << row.Text;
    EXPECT_EQ(read.Whole, row.Whole) << row.Text;
    EXPECT_EQ(read.Note.value_or(""), row.Note) << row.Text;
  }
  const UnitTab& load = UnitTabs()[1];
  EXPECT_EQ(UnitOf(load, "tonsF (short)"), 1);
  EXPECT_EQ(UnitOf(load, "4"), 4);
  EXPECT_FALSE(UnitOf(load, "5"));
}

}  // namespace
}  // namespace korva
