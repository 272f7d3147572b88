// Panels of every kind that the solver accepts, the same ones in every run.
#pragma once

#include <cmath>
#include <random>
#include <vector>

#include "Panel.h"

namespace korva::laminated {

class Chance {
 public:
  double Between(double low, double high) { return low + (high - low) * Unit(); }
  int Whole(int low, int high) { return low + static_cast<int>(Unit() * (high - low + 1)); }
  bool Happens(double share) { return Unit() < share; }

 private:
  double Unit() { return static_cast<double>(random_() >> 11) * 0x1p-53; }
  std::mt19937_64 random_{7};
};

inline Panel RandomPanel(Chance& chance) {
  Panel panel;
  panel.EntryHeight = chance.Between(3, 12);
  panel.DepthCover = chance.Between(100, 2500);
  panel.EntryWidth = chance.Between(16, 22);
  panel.Entries = chance.Whole(3, 10);
  for (int row = 0; row < panel.Rows(); ++row) {
    panel.Centers.at(static_cast<std::size_t>(row)) = chance.Between(30, 120);
  }
  panel.XcutSpacing = chance.Between(40, 140);
  panel.XcutAngle = chance.Happens(0.4) ? chance.Between(45, 90) : 90;
  panel.LoadCondition = static_cast<Loading>(chance.Whole(kDevelopmentOnly, kTwoSideGobs));
  panel.CoalStrength = 900;
  panel.UnitWeight = 162;
  panel.BreadthAMZ = 5 * std::sqrt(panel.DepthCover);
  panel.ExtentActiveGob = chance.Between(100, 3000);
  panel.AbutmentAngleActiveGob = chance.Between(10, 30);
  for (Side& side : panel.Sides) {
    side.Extent = chance.Between(100, 3000);
    side.Barrier = chance.Between(10, 300);
    side.SlabCut = chance.Happens(0.3) ? chance.Between(0, side.Barrier) : 0;
    side.AbutmentAngle = chance.Between(10, 30);
    side.BleederRow = chance.Happens(0.2);
    side.BleederWidth = chance.Between(20, 60);
  }
  return panel;
}

inline std::vector<Panel> RandomPanels(int count) {
  Chance chance;
  std::vector<Panel> panels;
  for (int i = 0; i < count; ++i) {
    panels.push_back(RandomPanel(chance));
  }
  return panels;
}

}  // namespace korva::laminated
