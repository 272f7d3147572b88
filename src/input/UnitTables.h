// The unit calculator: one value in all units of its kind.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korva {

enum class UnitQuantity { kLength, kLoad, kLoadGradient, kStress, kStressGradient };

inline constexpr int kUnitQuantities = 5;

struct CalculatorUnit {
  std::string_view Caption;
  std::string_view ResultBox;  // the name of the box that shows the value in it
};

// A tab of the calculator.
struct UnitTab {
  UnitQuantity Quantity = UnitQuantity::kLength;
  std::string_view Word;  // names it in a command
  std::string_view Caption;
  std::string_view FrameCaption;
  std::string_view InputBox;
  std::string_view Buttons;  // the array of the source units
  std::vector<CalculatorUnit> Units;
};

// All tabs, in their order.
const std::vector<UnitTab>& UnitTabs();

// The value `x`, given in unit `source` (its index on the tab), in every unit of the tab. With psf as the
// source the first two results stand in each other's place, as the calculator has always shown them. Run-time
// error 6 if a result has no finite value, 9 for a source that does not exist.
std::vector<double> ConvertUnits(UnitQuantity quantity, int source, double x);

// The number in a text as the calculator takes it: the longest leading number, else 0, blanks of every kind
// around it skipped, U+2212 as minus. A comma stands for the point if the text has no point.
struct CalculatorNumber {
  double Value = 0;
  bool Whole = false;  // the text is a number and nothing else
  std::optional<std::string>
      Note;  // "counts as 1.2" where it counts as another number than it looks, such as "1,200"
};
CalculatorNumber ReadCalculatorNumber(std::string_view text);

// The index of a unit on a tab, by its caption or its number.
std::optional<int> UnitOf(const UnitTab& tab, std::string_view captionOrIndex);

}  // namespace korva
