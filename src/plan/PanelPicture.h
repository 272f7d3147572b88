// Which schematic picture belongs to a loading condition and the rows left.
#pragma once

#include "core/PanelLoading.h"

namespace korva {

inline constexpr int kPanelPictures = 29;

// What a picture shows.
struct PanelPicture {
  PanelLoading Condition = PanelLoading::kDevelopmentLoad;
  bool RowA = false;  // pillars left in the active gob, along its first side
  bool RowB = false;  // and along its second side
  bool RowC = false;  // bleeder pillars in the first side gob, along its barrier
  bool RowD = false;  // and in the second side gob
};

// The index, 0 to 28, of the picture that shows it; rows that a condition does not have do not count, and a
// condition that is not known has picture 0.
int PanelPictureIndex(const PanelPicture& picture);

// The reverse of the index. Run-time error 9 for an index outside 0 to 28.
PanelPicture PanelPictureOf(int index);

}  // namespace korva
