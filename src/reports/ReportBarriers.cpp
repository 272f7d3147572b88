// Page 4: barrier pillars and their loads. Page 5: remnant and leave pillars.
#include <fmt/format.h>

#include "core/Format.h"
#include "core/Tables.h"
#include "reports/PageText.h"
#include "reports/Reports.h"

namespace korva {

namespace {

std::string LoadCell(double load, std::size_t width) {
  return PadLeft(Format(load, kLoadPattern), width);
}

std::string SideName(int k) {
  return PadLeft(FirstSecond[SideIndex(k)], 7);
}

// Whether a bleeder row adds to the pillar on side `k`.
bool HasBleeder(const Project& project, int k) {
  return IsSet(k == kFirstSide ? project.RowC : project.RowD);
}

// The mark after the row of a pillar that a bleeder row adds to.
std::string_view BleederMark(const Project& project, int k) {
  return !HasBleeder(project, k) ? "" : k == kFirstSide ? "*" : "**";
}

void BleederFootnotes(PageText& page, const WorkValues& w, const Project& project) {
  for (const int k : SideGobs(w.LoadCond)) {
    if (HasBleeder(project, k)) {
      page.Line(BleederNotes[SideIndex(k)]);
    }
  }
}

void NoSideGobs(PageText& page) {
  page.Line("***none***").Line();
}

void BarrierTable(PageText& page, const OutputResults& output, const Project& project) {
  const WorkValues& w = output.Work;
  const std::string_view length = UnitLabel(UnitKind::kLength, w.Units);
  page.Line("BARRIER       WIDTH       STRENGTH      LOAD-BEARING");
  page.Line(" PILLAR", PadLeft(length, 12), PadLeft(output.StressLabel, 15),
            PadLeft(fmt::format("CAPACITY{}", output.LoadLabel), 18));
  for (const int k : SideGobs(w.LoadCond)) {
    page.Line(SideName(k), PadLeft(Format(w.BarrierWidth[k], "0.00"), 12),
              PadLeft(Format(output.Out.BarrierStrength[k], kFactorPattern), 15),
              LoadCell(output.Out.BarrierCapacity[k], 18), BleederMark(project, k));
  }
  BleederFootnotes(page, w, project);
  page.Line().Line();
}

// The load kinds in rows, one column for each barrier.
void BarrierLoadTable(PageText& page, const OutputResults& output, int c) {
  const WorkValues& w = output.Work;
  const Results& r = output.Out;
  const bool two = w.LoadCond == kTwoSideGobs;
  const auto row = [&](std::string_view label, const auto& value, std::string_view pattern) {
    const auto cell = [&](int k) { return PadLeft(Format(value(k), pattern), 16); };
    page.Line(PadRight(label, 20), cell(kFirstSide), two ? cell(kSecondSide) : "");
  };

  page.Line("[BARRIER PILLAR LOADS - ", StageTitles[StageIndex(c)], "]");
  page.Line(PadRight(fmt::format("LOAD{}", output.LoadLabel), 15), PadLeft("1st BARRIER", 21),
            two ? PadLeft("2nd BARRIER", 16) : "");
  row(
      "Tributary Area", [&](int k) { return r.BarTribLoad[c][k]; }, kLoadPattern);
  if (c == kRetreat) {
    row(
        "Front Abutment", [&](int k) { return r.BarFrontLoad[c][k] + r.SlabLoad[c][k]; }, kLoadPattern);
  }
  row(
      "Side Abutment", [&](int k) { return r.BarSideLoad[c][k]; }, kLoadPattern);
  row(
      "Pressure Arch", [&](int k) { return r.BarArchLoad[c][k]; }, kLoadPattern);
  row(
      "TOTAL", [&](int k) { return r.BarTotalLoad[c][k]; }, kLoadPattern);
  if (two) {
    page.Line();
  }
  row(
      "Stability Factor", [&](int k) { return r.BarrierSF[c][k]; }, "#0.00");
  row(
      "LTRANSBAR", [&](int k) { return r.LTRANSBAR[c][k]; }, kLoadPattern);
  page.Line().Line();
}

void RemnantTables(PageText& page, const OutputResults& output, const Project& project) {
  const WorkValues& w = output.Work;
  const Results& r = output.Out;
  const std::string_view length = UnitLabel(UnitKind::kLength, w.Units);
  page.Line("[REMNANT BARRIER PILLARS BETWEEN GOBS - DATA]");
  page.Line("REMNANT       WIDTH      LENGTH        LOAD BEARING");
  page.Line(" PILLAR", PadLeft(length, 12), PadLeft(length, 12),
            PadLeft(fmt::format("CAPACITY{}", output.LoadLabel), 20));
  for (const int k : SideGobs(w.LoadCond)) {
    page.Line(SideName(k), PadLeft(Format(r.RemnantWidth[k], "###0.0"), 12),
              PadLeft(Format(r.RemnantLength, "#0.00"), 12), LoadCell(r.RemnantCapacity[k], 20),
              BleederMark(project, k));
  }
  BleederFootnotes(page, w, project);

  page.Line();
  page.Line("REMNANT    TOTAL LOAD     STABILITY       LFBAR   LTRANSREM");
  page.Line(" PILLAR", PadLeft(output.LoadLabel, 14), PadLeft("FACTOR", 14), PadLeft(output.LoadLabel, 12),
            PadLeft(output.LoadLabel, 12));
  for (const int k : SideGobs(w.LoadCond)) {
    page.Line(SideName(k), LoadCell(r.RemnantLoad[kRetreat][k], 14),
              PadLeft(Format(r.RemnantSF[k], "#0.00"), 14), LoadCell(r.LFBAR[kRetreat][k], 12),
              LoadCell(r.LTRANSREM[kRetreat][k], 12));
  }
  page.Line();
}

void LeaveRowTable(PageText& page, const OutputResults& output) {
  const WorkValues& w = output.Work;
  const Results& r = output.Out;
  page.Line("[LEAVE PILLAR PARAMETERS]");
  page.Line(" PILLAR  STRENGTH    LOAD BEARING   TRIBUTARY      EXCESS");
  page.Line("    ROW                  CAPACITY        AREA        LOAD");
  page.Line(std::string(7, ' '), PadLeft(output.StressLabel, 10), PadLeft(output.LoadLabel, 16),
            PadLeft(output.LoadLabel, 12), PadLeft(output.LoadLabel, 12));
  for (const int j : SideGobs(w.LoadCond)) {
    if (w.LeaveRow[j]) {
      page.Line(std::string(6, ' '), RowLetters[SideIndex(j)],
                PadLeft(Format(r.RowStrength[j], "###0.0"), 10), LoadCell(r.RowCapacity[j], 16),
                LoadCell(r.RowTribLoad[j], 12), LoadCell(r.RowExcess[j], 12), "*");
    }
  }
  page.Line("*Adjusted for effective length of the remnant barrier.");
}

}  // namespace

std::string ReportBarriers(const OutputResults& output, const Project& project) {
  const WorkValues& w = output.Work;
  PageText page(kBarriersHeading);
  if (w.LoadCond < kOneSideGob) {
    NoSideGobs(page);
    return page.Take();
  }
  BarrierTable(page, output, project);
  for (int c = kDevelopment; c <= LastCaseShown(project, w); ++c) {
    BarrierLoadTable(page, output, c);
  }
  if (w.GobExtent[kFront] == 0) {
    page.Line().Line().Line();
  }
  return page.Take();
}

std::string ReportRemnants(const OutputResults& output, const Project& project) {
  const WorkValues& w = output.Work;
  PageText page("[REMNANT PILLAR AND LEAVE PILLAR PARAMETERS]");
  if (w.LoadCond < kOneSideGob) {
    NoSideGobs(page);
    return page.Take();
  }
  RemnantTables(page, output, project);
  if (w.LeaveRow[kFirstSide] || w.LeaveRow[kSecondSide]) {
    LeaveRowTable(page, output);
  }
  return page.Take();
}

}  // namespace korva
