// Which schematic picture belongs to a loading condition and the rows left.
#pragma once

#include "core/PanelLoading.h"

namespace korva {

inline constexpr int kPanelPictures = 29;

// The index, 0 to 28, of the picture for a loading condition and the rows left (0 or not). A condition that
// does not exist has picture 0.
int PanelPictureIndex(PanelLoading condition, int rowA, int rowB, int rowC, int rowD);

// What a picture shows.
struct PanelPicture {
  PanelLoading Condition = PanelLoading::kDevelopmentLoad;
  bool RowA = false;  // pillars left in the active gob, along its first side
  bool RowB = false;  // and along its second side
  bool RowC = false;  // bleeder pillars in the first side gob, along its barrier
  bool RowD = false;  // and in the second side gob
};

// The reverse of the index. Run-time error 9 for an index outside 0 to 28.
PanelPicture PanelPictureOf(int index);

}  // namespace korva
