// Sample projects of the tests, each the start of variations.
#pragma once

#include "core/Project.h"

namespace korva::test {

// Centers of `center`, `rows` times.
inline void SetRows(Project& p, int rows, double center) {
  p.NumberEntries = rows + 1;
  for (int i = 1; i <= rows; ++i) {
    p.XcutCenters[i] = center;
  }
}

// Three rows of 60 ft by 80 ft at 400 ft, no gob near. No rule has anything to say about it.
inline Project DevelopmentPanel() {
  Project p;
  p.EntryHeight = 6;
  p.DepthCover = 400;
  p.EntryWidth = 20;
  p.XcutSpacing = 80;
  SetRows(p, 3, 60);
  p.BreadthAMZ = 100;
  return p;
}

// Five rows at 900 ft between two gobs, with a slab cut in the first barrier.
inline Project TwoSideGobs() {
  Project p = DevelopmentPanel();
  p.DepthCover = 900;
  SetRows(p, 5, 60);
  p.BreadthAMZ = 150;
  p.LoadingCondition = PanelLoading{3};
  p.ExtentActiveGob = 1000;
  p.ExtentFirstGob = 1000;
  p.BarrierFirstGob = 60;
  p.SlabcutFirstGob = 20;
  p.ExtentSecondGob = 500;
  p.BarrierSecondGob = 25;
  return p;
}

// The same panel at loading condition `condition`, 0 to 3.
inline Project AtCondition(Project p, int condition) {
  p.LoadingCondition = static_cast<PanelLoading>(condition);
  return p;
}

inline StoredProject Stored(const Project& project, UnitSystem units = kEnglish) {
  StoredProject stored;
  stored.ProjectInput = project;
  stored.ProjectTitle = "Sample panel";
  stored.ProjectUnits = units;
  return stored;
}

}  // namespace korva::test
