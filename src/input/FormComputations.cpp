#include "input/FormComputations.h"

#include <cmath>
#include <limits>

#include "core/ArithmeticWatch.h"
#include "core/Format.h"
#include "core/Limits.h"
#include "core/NumberText.h"
#include "input/FieldNumber.h"

namespace korva {

namespace {

constexpr double kMetricWidePanelDepth = 262.4671916010498;  // 80 m in feet

double FieldOf(double value) {
  return FieldNumber(GeneralText(value));
}

// The centers' sum in 32 bits, narrowed at each addition.
float SumOfCenters(const Project& fields) {
  float sum = 0;
  for (int i = 1; i < fields.NumberEntries; ++i) {
    sum = static_cast<float>(static_cast<double>(sum) + fields.XcutCenters[i]);
  }
  return sum;
}

// The arch factor before it is rounded; all in feet, `width` not 0.
float ArchOf(float depth, float width, double wideDepth) {
  const auto h = static_cast<double>(depth);
  const auto w = static_cast<double>(width);
  float factor = 0;
  if (h > kLeastArchDepth) {
    factor = static_cast<float>(1 - kArchSlope * NaturalLog(h / w, "Calc_Arch"));
  }
  if (h - wideDepth < w) {
    factor = 1;
  }
  return factor < kLeastArchFactorSingle ? kLeastArchFactorSingle : factor;
}

}  // namespace

Project ShownInForm(const Project& project) {
  Project shown = project;
  for (double Project::*member : {&Project::DepthCover, &Project::XcutAngle, &Project::EntryWidth,
                                  &Project::XcutSpacing, &Project::BreadthAMZ}) {
    shown.*member = FieldOf(project.*member);
  }
  for (int i = 1; i < shown.NumberEntries; ++i) {
    const double center = FieldOf(project.XcutCenters[i]);
    shown.XcutCenters[i] = center == 0 ? shown.XcutCenters[1] : center;
  }
  return shown;
}

std::int32_t Calc_AMZ(double depth, UnitSystem units) {
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kStepwise);
  double breadth = 0;
  if (units == kMetric) {
    const auto feet = static_cast<float>(depth * kFeetPerMeter);
    breadth = 5 * SquareRoot(static_cast<double>(feet), "Calc_AMZ") / kFeetPerMeter;
  } else {
    breadth = 5 * SquareRoot(depth, "Calc_AMZ");
  }
  watch.Step("Calc_AMZ");
  breadth = std::nearbyint(breadth);
  if (breadth > std::numeric_limits<std::int32_t>::max()) {
    throw RuntimeError(ErrorNumber::kOverflow, "Calc_AMZ");
  }
  return static_cast<std::int32_t>(breadth);
}

float Calc_Arch(const Project& fields, UnitSystem units) {
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kStepwise);
  auto depth = static_cast<float>(fields.DepthCover);
  float width = SumOfCenters(fields);
  watch.Step("Calc_Arch");
  if (width == 0) {
    return 1;
  }
  double wideDepth = kWidePanelDepth;
  if (units == kMetric) {
    depth = static_cast<float>(static_cast<double>(depth) * kFeetPerMeter);
    width = static_cast<float>(static_cast<double>(width) * kFeetPerMeter);
    wideDepth = kMetricWidePanelDepth;
  }
  const float factor = ArchOf(depth, width, wideDepth);
  watch.Step("Calc_Arch");
  return static_cast<float>(RoundHalfEven(static_cast<double>(factor), 2));
}

float UnroundedArch(const Project& project) {
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kStepwise);
  const auto depth = static_cast<float>(FieldOf(project.DepthCover));
  const float sum = SumOfCenters(project);
  watch.Step("Calc_Arch");
  const auto width = static_cast<float>(FieldNumber(GeneralText(sum)));
  if (width == 0) {
    return 1;
  }
  const float factor = ArchOf(depth, width, kWidePanelDepth);
  watch.Step("Calc_Arch");
  return factor;
}

std::string Calc_Ext_Ratio(const Project& fields) {
  const ArithmeticWatch watch(ArithmeticWatch::Mode::kStepwise);
  const double angle = fields.XcutAngle * kRadiansPerDegree;
  const double spacing = fields.XcutSpacing;
  const double panelArea = static_cast<double>(SumOfCenters(fields)) * fields.BreadthAMZ;
  watch.Step("Calc_Ext_Ratio");
  if (angle == 0 || spacing == 0 || panelArea == 0) {
    return {};
  }
  const double s = std::sin(angle);
  double pillars = 0;
  for (int i = 1; i < fields.NumberEntries; ++i) {
    const double length = (spacing - fields.EntryWidth / s) * s;
    const double width = (fields.XcutCenters[i] - fields.EntryWidth) * (1 / s);
    pillars += length * width;
  }
  const double withinZone = pillars * fields.BreadthAMZ / spacing;
  const double percent = (panelArea - withinZone) / panelArea * 100;
  watch.Step("Calc_Ext_Ratio");
  return Format(percent, "##0.0");
}

}  // namespace korva
