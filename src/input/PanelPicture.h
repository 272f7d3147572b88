// Which controls and which schematic picture of the parameters form belong to a loading condition.
#pragma once

#include <cstdint>

namespace korva {

inline constexpr int kPanelPictures = 29;

// The index, 0 to 28, of the picture for a loading condition and the rows left (0 or not). A condition that
// does not exist has picture 0.
int PanelPictureIndex(std::int16_t condition, std::int16_t rowA, std::int16_t rowB, std::int16_t rowC,
                      std::int16_t rowD);

// What a picture shows, the reverse of the index.
struct PanelPicture {
  int Condition = 0;
  bool RowA = false;
  bool RowB = false;
  bool RowC = false;
  bool RowD = false;
};
// Run-time error 9 for an index outside 0 to 28.
PanelPicture PanelPictureOf(int index);

}  // namespace korva
