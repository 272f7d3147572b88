#include "Factors.h"

#include <algorithm>
#include <cmath>

#include "Status.h"
#include "korvastrond.h"

namespace korva::laminated {

namespace {

constexpr double kSquareInchesPerSquareFoot = 144;
constexpr double kPaPerMPa = 1e6;
constexpr double kNewtonsPerKN = 1000;

constexpr double kLeastKept = 0.001;
constexpr double kYieldSettled = 5e-4;

std::size_t Index(int i) {
  return static_cast<std::size_t>(i);
}

// The vertical stress of the cover, in lb/ft2 or Pa.
double CoverStress(const Panel& panel) {
  return panel.UnitWeight * panel.DepthCover * (panel.Metric ? kNewtonsPerKN : 1);
}

// Force over area of a strength of 1.
double StrengthUnit(bool metric) {
  return metric ? 1 : kSquareInchesPerSquareFoot;
}

double CoalStrength(const Panel& panel) {
  return panel.CoalStrength * (panel.Metric ? kPaPerMPa : 1);
}

double PillarStrength(const Layout& layout, int row) {
  const double width = layout.PillarWidth(row);
  const double length = layout.PillarLengthAlong() * layout.Sine;
  if (!(width > 0) || !(length > 0)) {
    return 0;
  }
  const double longer = std::max(width, length) / layout.Sine;
  return PillarShape(std::min(width, length), longer, layout.Given.EntryHeight) * CoalStrength(layout.Given);
}

// A row of bleeder pillars between two places along the entries, at the gob line of its side.
std::vector<Ground> BleederPieces(const Layout& layout, int side, double y0, double y1) {
  std::vector<Ground> pieces;
  const double shift = layout.Line.At(layout.Rib.at(Index(side)));
  const double pitch = layout.Given.XcutSpacing;
  for (int along = static_cast<int>(std::floor((y0 + shift) / pitch)); along * pitch < y1 + shift; ++along) {
    Ground piece = layout.BleederPillar(side, along);
    piece.Y0 = std::max(piece.Y0, y0 + shift);
    piece.Y1 = std::min(piece.Y1, y1 + shift);
    if (!piece.Empty()) {
      pieces.push_back(piece);
    }
  }
  return pieces;
}

double AreaOf(const std::vector<Ground>& pieces) {
  double area = 0;
  for (const Ground& piece : pieces) {
    area += (piece.X1 - piece.X0) * (piece.Y1 - piece.Y0);
  }
  return area;
}

// A part that may be overloaded: where it lies, the force that it can bear, and what is left of its
// stiffness.
struct Part {
  std::vector<Ground> Pieces;
  double Capacity = 0;
  double* Kept = nullptr;
};

Part BleederPart(const Layout& layout, int side, double y0, double y1, double* kept) {
  const Panel& panel = layout.Given;
  const double width = panel.Sides.at(Index(side)).BleederWidth;
  const double clear = panel.XcutSpacing - panel.EntryWidth;
  Part part{BleederPieces(layout, side, y0, y1), 0, kept};
  if (!part.Pieces.empty()) {
    part.Capacity = PillarShape(std::min(width, clear), std::max(width, clear), panel.EntryHeight) *
                    CoalStrength(panel) * StrengthUnit(panel.Metric) * AreaOf(part.Pieces);
  }
  return part;
}

// What both cases work with.
class Run {
 public:
  Run(const Panel& panel, const FactorRule& rule)
      : panel_(panel),
        rule_(rule),
        layout_(LayOut(panel)),
        grid_(GridFor(layout_, rule.Cells)),
        membrane_(grid_.Nx, grid_.Ny, SquareOf(layout_.Length / grid_.Cx),
                  SquareOf(layout_.Length / grid_.Cy)) {}

  Factors All() {
    factors_.Cells = grid_;
    for (int row = 0; row < panel_.Rows(); ++row) {
      factors_.PillarStrength.at(Index(row)) = PillarStrength(layout_, row);
    }
    for (int side = 0; side < panel_.GobSides(); ++side) {
      SetSupport(factors_.Barrier.at(Index(side)), panel_.Sides.at(Index(side)).Barrier, panel_.BreadthAMZ);
      if (layout_.Retreats) {
        const Side& given = panel_.Sides.at(Index(side));
        SetSupport(factors_.Remnant.at(Index(side)), given.Barrier - given.SlabCut, layout_.RemnantLength);
      }
    }
    SolveCase(kDevelopment);
    if (layout_.Retreats) {
      SolveCase(kRetreat);
    } else {
      RepeatDevelopment();
    }
    for (int c = 0; c < kCases; ++c) {
      for (int side = 0; side < kSides; ++side) {
        factors_.BarrierFactor.at(Index(c)).at(Index(side)) =
            factors_.Barrier.at(Index(side)).Factor(c, panel_.Metric);
        factors_.RemnantFactor.at(Index(c)).at(Index(side)) =
            factors_.Remnant.at(Index(side)).Factor(c, panel_.Metric);
      }
    }
    return factors_;
  }

 private:
  static double SquareOf(double value) { return value * value; }

  void SetSupport(Support& support, double width, double length) const {
    if (width > 0 && length > 0) {
      support.Strength = LongPillarShape(width, panel_.EntryHeight) * CoalStrength(panel_);
      support.Area = width * length;
    }
  }

  Ground BarrierWindow(int side) const { return layout_.BarrierBetween(side, 0, panel_.BreadthAMZ); }
  Ground RemnantWindow(int side) const {
    return layout_.BarrierBetween(side, -layout_.RemnantLength, 0, panel_.Sides.at(Index(side)).SlabCut);
  }

  double Capacity(const Support& support) const {
    return support.Strength * StrengthUnit(panel_.Metric) * support.Area;
  }

  std::vector<Part> Parts(int c, Yield& kept) const {
    std::vector<Part> parts;
    for (int side = 0; side < panel_.GobSides(); ++side) {
      const std::size_t s = Index(side);
      parts.push_back({{BarrierWindow(side)}, Capacity(factors_.Barrier.at(s)), &kept.Barrier.at(s)});
      if (c == kRetreat) {
        parts.push_back({{RemnantWindow(side)}, Capacity(factors_.Remnant.at(s)), &kept.BesideGob.at(s)});
      }
      if (panel_.Sides.at(s).BleederRow) {
        parts.push_back(BleederPart(layout_, side, 0, panel_.BreadthAMZ, &kept.Bleeder.at(s)));
        if (c == kRetreat) {
          parts.push_back(
              BleederPart(layout_, side, -layout_.RemnantLength, 0, &kept.BleederBesideGob.at(s)));
        }
      }
    }
    std::erase_if(parts, [](const Part& part) { return AreaOf(part.Pieces) <= 0; });
    return parts;
  }

  void SolveCase(int c) {
    CaseRun& run = factors_.Runs.at(Index(c));
    SolveOnce(c, run);
    for (int side = 0; side < panel_.GobSides(); ++side) {
      const std::size_t s = Index(side);
      factors_.Barrier.at(s).Load.at(Index(c)) = LoadOn(BarrierWindow(side));
      factors_.Remnant.at(s).Load.at(Index(c)) =
          factors_.Remnant.at(s).Area > 0 ? LoadOn(RemnantWindow(side)) : 0;
    }
    if (rule_.Yields) {
      YieldOverloaded(c, run);
    }
    factors_.Pillars.at(Index(c)) = PillarFactor();
  }

  void SolveOnce(int c, CaseRun& run) {
    membrane_.SetStiffness(c == kDevelopment ? DevelopmentStiffness(layout_, grid_, run.Kept)
                                             : RetreatStiffness(layout_, grid_, run.Kept));
    run.Outcome = membrane_.Solve(rule_.Solution, run.Solutions > 0);
    ++run.Solutions;
    run.Iterations += run.Outcome.Iterations;
    if (!run.Outcome.Converged) {
      throw Failure{KORVASTROND_NO_CONVERGENCE};
    }
    solution_ = membrane_.Solution();
  }

  // Takes stiffness from overloaded parts until each bears its capacity and no more. Nothing changes, and
  // nothing is solved again, if no part is overloaded.
  void YieldOverloaded(int c, CaseRun& run) {
    const std::vector<Part> parts = Parts(c, run.Kept);
    std::vector<double> next(parts.size());
    for (int step = 0; step < rule_.MostYieldSteps; ++step) {
      double change = 0;
      for (std::size_t i = 0; i < parts.size(); ++i) {
        const double kept = *parts[i].Kept;
        double load = 0;
        for (const Ground& piece : parts[i].Pieces) {
          load += kept * LoadOn(piece);
        }
        const double share = parts[i].Capacity / load;
        next[i] = std::clamp(kept * (share * std::sqrt(share)), kLeastKept, 1.0);
        change = std::max(change, std::abs(next[i] / kept - 1));
      }
      if (change <= kYieldSettled) {
        return;
      }
      for (std::size_t i = 0; i < parts.size(); ++i) {
        *parts[i].Kept = next[i];
      }
      SolveOnce(c, run);
    }
    throw Failure{KORVASTROND_NO_YIELD_BALANCE};
  }

  // Force on coal that keeps its stiffness.
  double LoadOn(const Ground& ground) const {
    return CoverStress(panel_) * IntegralOver(solution_, grid_, layout_.Line, ground);
  }

  // Capacity over load of the pillars within the active mining zone, the last crosscut pitch by its part.
  double PillarFactor() const {
    const bool leavesOut = panel_.LoadCondition == kActiveGob;
    const int first = leavesOut && panel_.RowA ? 1 : 0;
    const int last = panel_.Rows() - (leavesOut && panel_.RowB ? 1 : 0);
    const double pitches = panel_.BreadthAMZ / panel_.XcutSpacing;
    double capacity = 0;
    double load = 0;
    for (int row = first; row < last; ++row) {
      const double strength = factors_.PillarStrength.at(Index(row)) * StrengthUnit(panel_.Metric);
      const Ground pillar = layout_.Pillar(row, 0);
      if (pillar.Empty()) {
        continue;
      }
      capacity += strength * (pillar.X1 - pillar.X0) * (pillar.Y1 - pillar.Y0) * pitches;
      for (int along = 0; along < pitches; ++along) {
        load += std::min(1.0, pitches - along) * LoadOn(layout_.Pillar(row, along));
      }
    }
    return load > 0 ? capacity / load : 0;
  }

  void RepeatDevelopment() {
    factors_.Pillars[1] = factors_.Pillars[0];
    factors_.Runs[1] = factors_.Runs[0];
    for (Support& barrier : factors_.Barrier) {
      barrier.Load[1] = barrier.Load[0];
    }
  }

  const Panel& panel_;
  const FactorRule& rule_;
  Layout layout_;
  Grid grid_;
  Membrane membrane_;
  std::vector<double> solution_;
  Factors factors_;
};

}  // namespace

double PillarShape(double w, double l, double h) {
  return 0.64 + 0.54 * w / h - 0.18 * (w * w) / (h * l);
}

double LongPillarShape(double w, double h) {
  return w < h ? 0 : 0.64 + 0.54 * w / h;
}

double Support::Factor(int c, bool metric) const {
  const double load = Load.at(Index(c));
  return load > 0 ? Strength * StrengthUnit(metric) * Area / load : 0;
}

bool AreFinite(const Factors& f) {
  const auto all = [](const auto& values) {
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
  };
  const auto borne = [&all](const Support& b) {
    return std::isfinite(b.Strength) && std::isfinite(b.Area) && all(b.Load);
  };
  return all(f.Pillars) && all(f.PillarStrength) && std::all_of(f.Barrier.begin(), f.Barrier.end(), borne) &&
         std::all_of(f.Remnant.begin(), f.Remnant.end(), borne) &&
         std::all_of(f.BarrierFactor.begin(), f.BarrierFactor.end(), all) &&
         std::all_of(f.RemnantFactor.begin(), f.RemnantFactor.end(), all);
}

Factors ComputeFactors(const Panel& panel, const FactorRule& rule) {
  return Run(panel, rule).All();
}

}  // namespace korva::laminated
