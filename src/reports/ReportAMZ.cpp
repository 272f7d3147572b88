// Page 2: the active mining zone and its loads.
#include "core/Format.h"
#include "core/Tables.h"
#include "reports/PageText.h"
#include "reports/Reports.h"

namespace korva {

namespace {

constexpr std::size_t kLabelWidth = 40;
constexpr std::array<std::string_view, 2> kCaseNames = {"DEVELOPMENT", "RETREAT"};

class AMZPage {
 public:
  AMZPage(const OutputResults& output, const Project& project)
      : output_(output),
        w_(output.Work),
        r_(output.Out),
        project_(project),
        length_(UnitLabel(UnitKind::kLength, w_.Units)),
        bareLength_(length_.substr(1)) {}

  std::string Build() {
    Geometry();
    RFactors();
    for (int c = kDevelopment; c <= LastCaseShown(project_, w_); ++c) {
      CaseBlock(c);
    }
    Notes();
    return page_.Take();
  }

 private:
  template <class... Units>
  void Row(std::string_view label, double value, std::string_view pattern, const Units&... units) {
    page_.Line(DotPad(label, kLabelWidth), Format(value, pattern), units...);
  }

  void Geometry() {
    Row("Panel Width", w_.PanelWidth, "##0.0", length_);
    if (w_.PanelWidth != 0) {
      Row("Depth to Panel Width Ratio", w_.DepthCover / w_.PanelWidth, "##0.0");
    }
    Row("AMZ Breadth", w_.AMZBreadth, "##0.0", length_);
    Row("AMZ Area", r_.AMZArea, "##0.0", length_, "*", bareLength_);
    Row("Extraction Ratio within AMZ", r_.ExtractionAMZ, kFactorPattern);
    Row("Tributary Area Load on AMZ", r_.DevLoad, kLoadPattern, output_.LoadLabel);
    static constexpr std::array<std::string_view, 3> kLabels = {
        "Front Abutment Load", "First Side Abutment Load", "Second Side Abutment Load"};
    for (int j = kFront; j <= LastStage(w_.LoadCond); ++j) {
      Row(kLabels[static_cast<std::size_t>(j - kFront)], r_.AbutLoad[j], "##0", output_.LoadLabel, "/",
          bareLength_);
    }
    page_.Line();
  }

  void RFactors() {
    if (w_.LoadCond >= kActiveGob) {
      Row("R-FACTOR For Front Abutment", r_.RFront, "##0.000");
    }
    static constexpr std::array<std::string_view, 2> kLabels = {"R-FACTOR For First Side Abutment",
                                                                "R-FACTOR For Second Side Abutment"};
    for (const int k : SideGobs(w_.LoadCond)) {
      Row(kLabels[SideIndex(k)], r_.RSide[k], "##0.000");
    }
    page_.Line();
  }

  // The build-up of the load on the AMZ. The entries with a star are reduced by the pressure arch factor.
  void CaseBlock(int c) {
    const std::string_view name = kCaseNames[StageIndex(c)];
    const auto fpa = static_cast<double>(r_.Fpa);
    const auto load = [this](std::string_view label, double value) { Row(label, value, kLoadPattern); };
    page_.Line(name, " LOADINGS ON AMZ", output_.LoadLabel);
    load("Tributary Area*", fpa * r_.DevLoad);
    if (c == kRetreat) {
      load("Front abutment load*", fpa * r_.AMZLoad[c][kFront]);
    }
    for (const int k : SideGobs(w_.LoadCond)) {
      const std::string side = k == kFirstSide ? "1st Side " : "2nd Side ";
      load(side + "Abutment load*", fpa * r_.AMZLoad[c][k]);
      if (c == kRetreat) {
        load(side + "Barrier LTRANSREM*", fpa * r_.LTRANSREM[c][k]);
      }
      load(side + "Barrier LTRANSBAR", r_.LTRANSBAR[c][k]);
    }
    load("TOTAL " + std::string(name), r_.AMZTotalLoad[c][LastStage(w_.LoadCond)]);
    page_.Line("*Adjusted by Pressure Arch Factor").Line();
  }

  void Notes() {
    page_.Line();
    for (const std::string_view note : {"R-Factor for front abutment is the percent of the total front "
                                        "abutment load that is applied to the AMZ.",
                                        "R-Factor for side abutment is the percent of the total side "
                                        "abutment load that is applied to the barrier pillar (the "
                                        "remainder is applied to the AMZ).",
                                        "LTRANSBAR is the load transferred to the AMZ from the barrier "
                                        "pillar between the side and active gob if the barrier's SF is "
                                        "less than 1.5.",
                                        "LTRANSREM is the load transferred to the AMZ from the remnant "
                                        "barrier between the side and active gob if the remnant's SF is "
                                        "less than 1.5."}) {
      page_.Text(WrapText(note, kPageWidth)).Line();
    }
    page_.Line();
  }

  const OutputResults& output_;
  const WorkValues& w_;
  const Results& r_;
  const Project& project_;
  std::string_view length_;      // " (ft)"
  std::string_view bareLength_;  // "(ft)"
  PageText page_{"[DATA ABOUT THE ACTIVE MINING ZONE (AMZ)]"};
};

}  // namespace

std::string ReportAMZ(const OutputResults& output, const Project& project) {
  return AMZPage(output, project).Build();
}

}  // namespace korva
