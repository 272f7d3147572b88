#include "ResultFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <initializer_list>
#include <string_view>

#include "Status.h"
#include "korvastrond.h"

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

void AddBearings(std::string& text, const std::array<Bearing, kSides>& bearings) {
  for (const Bearing& b : bearings) {
    AddLine(text, {b.Strength, b.Area, b.Load[0], b.Load[1]});
  }
}

void AddFactors(std::string& text, const std::array<std::array<double, kSides>, kCases>& factors) {
  AddLine(text, {factors[0][0], factors[1][0], factors[0][1], factors[1][1]});
}

bool WriteWhole(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written <= 0) {
      return false;
    }
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return fsync(file) == 0;
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
  return folder / (stem.string() + (ownFolder ? "_KVSD..CSV" : "_KVSD.CSV"));
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
  AddBearings(text, f.Barrier);
  AddBearings(text, f.Remnant);
  return text;
}

void WriteResult(const fs::path& path, const std::string& text) {
  std::string beside = (path.parent_path() / ".korvastrond-XXXXXX").string();
  const int file = mkstemp(beside.data());
  if (file < 0) {
    throw Failure{KORVASTROND_RESULT_NOT_WRITTEN};
  }
  constexpr mode_t kPlain = 0644;
  const mode_t mask = umask(0);
  umask(mask);
  const bool written = WriteWhole(file, text) && fchmod(file, kPlain & ~mask) == 0;
  if (close(file) != 0 || !written || rename(beside.c_str(), path.c_str()) != 0) {
    unlink(beside.c_str());
    throw Failure{KORVASTROND_RESULT_NOT_WRITTEN};
  }
}

}  // namespace korva::laminated
