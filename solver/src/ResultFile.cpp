#include "ResultFile.h"

#include <array>
#include <charconv>
#include <initializer_list>
#include <string_view>

namespace korva::laminated {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeading =
    "cells across,cells along,cell size,iterations development,iterations retreat,residual development,"
    "residual retreat,equilibrium defect development,equilibrium defect retreat; stability factors, barrier and "
    "remnant factors, pillar strengths, barriers, remnants";
constexpr int kDigits = 9;

std::string NumberText(double value) {
  std::array<char, 32> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, kDigits)
          .ptr;
  return {digits.data(), end};
}

void AddLine(std::string& text, std::initializer_list<double> values) {
  for (const double* value = values.begin(); value != values.end(); ++value) {
    text += (value == values.begin() ? "" : ",") + NumberText(*value);
  }
  text += "\r\n";
}

void AddSupports(std::string& text, const std::array<Support, kSides>& supports) {
  for (const Support& support : supports) {
    AddLine(text, {support.Strength, support.Area, support.Load[0], support.Load[1]});
  }
}

void AddFactors(std::string& text, const std::array<std::array<double, kSides>, kCases>& factors) {
  AddLine(text, {factors[0][0], factors[1][0], factors[0][1], factors[1][1]});
}

}  // namespace

fs::path ResultPath(const fs::path& exchange, const fs::path& program) {
  const fs::path stem = exchange.stem();
  fs::path folder = exchange.parent_path();
  const bool documents = folder.filename() == "Temp" && folder.parent_path().filename() == "MyFolvane";
  if (folder.filename() == stem && !documents) {
    folder = folder.parent_path();
  }
  std::error_code ignored;
  const bool ownFolder = !program.empty() && fs::equivalent(folder, program, ignored);
  return (folder / stem) += ownFolder ? "_KVSD..CSV" : "_KVSD.CSV";
}

std::string ResultText(const Factors& f) {
  const auto& [development, retreat] = f.Runs;
  std::string text = std::string(kHeading) + "\r\n";
  AddLine(text, {static_cast<double>(f.Cells.Nx), static_cast<double>(f.Cells.Ny), f.Cells.Cx,
                 static_cast<double>(development.Iterations), static_cast<double>(retreat.Iterations),
                 development.Outcome.Residual, retreat.Outcome.Residual, development.Outcome.Equilibrium,
                 retreat.Outcome.Equilibrium});
  AddLine(text, {f.Pillars[0], f.Pillars[1]});
  AddFactors(text, f.BarrierFactor);
  AddFactors(text, f.RemnantFactor);
  const auto& s = f.PillarStrength;
  AddLine(text, {s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7], s[8]});
  AddSupports(text, f.Barrier);
  AddSupports(text, f.Remnant);
  return text;
}

}  // namespace korva::laminated
