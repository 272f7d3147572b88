#include <fmt/format.h>

#include "core/NumberText.h"
#include "core/Text.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

class LineText {
 public:
  LineText& Add(double value) { return AddText(GeneralText(value)); }
  LineText& Add(float value) { return AddText(GeneralText(value)); }
  LineText& Add(int value) { return AddText(fmt::format("{}", value)); }
  LineText& AddText(std::string_view text) {
    text_.append(text).append(",");
    return *this;
  }
  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace

std::string StrondLine(const Project& p, UnitSystem units) {
  LineText line;
  line.AddText("0,0");
  line.Add(p.EntryHeight).Add(p.DepthCover).Add(p.EntryWidth).Add(p.XcutSpacing).Add(p.XcutAngle);
  line.Add(p.NumberEntries);
  for (const double center : p.XcutCenters) {
    line.Add(center);
  }
  line.Add(static_cast<int>(p.LoadingCondition) + 1);
  line.Add(p.ExtentActiveGob).Add(p.ExtentFirstGob).Add(p.ExtentSecondGob);
  line.Add(p.BarrierFirstGob).Add(p.BarrierSecondGob);
  line.Add(p.SlabcutFirstGob).Add(p.SlabcutSecondGob);
  line.AddText(" 0,0,0, 0,0,0, 0,0,0, 0,1,0");
  line.Add(static_cast<int>(units));
  line.Add(p.CoalStrength).Add(p.UnitWeight).Add(p.BreadthAMZ);
  line.Add(p.AbutmentAngleActiveGob).Add(p.AbutmentAngleFirstGob).Add(p.AbutmentAngleSecondGob);
  line.Add(p.RowA).Add(p.RowB).Add(p.RowC).Add(p.RowD);
  line.Add(p.WidthRowC).Add(p.WidthRowD);
  return line.Take() + "0,0" + std::string(kLineEnd);
}

}  // namespace korva
