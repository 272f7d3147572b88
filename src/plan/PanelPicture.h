// Which schematic picture belongs to a loading condition and the rows left.
#pragma once

#include <cstdint>

namespace korva {

inline constexpr int kPanelPictures = 29;

// The index, 0 to 28, of the picture for a loading condition and the rows left (0 or not). A condition that
// does not exist has picture 0.
int PanelPictureIndex(std::int16_t condition, std::int16_t rowA, std::int16_t rowB, std::int16_t rowC,
                      std::int16_t rowD);

// What a picture shows.
struct PanelPicture {
  int Condition = 0;  // 0 development, 1 active gob, 2 and 3 also one and two side gobs
  bool RowA = false;  // pillars left in the active gob, along its first side
  bool RowB = false;  // and along its second side
  bool RowC = false;  // bleeder pillars in the first side gob, along its barrier
  bool RowD = false;  // and in the second side gob
};

// The reverse of the index. Run-time error 9 for an index outside 0 to 28.
PanelPicture PanelPictureOf(int index);

}  // namespace korva
