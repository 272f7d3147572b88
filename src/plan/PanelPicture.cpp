#include "plan/PanelPicture.h"

#include "core/RuntimeError.h"

namespace korva {

namespace {

constexpr int kActiveGobBlock = 1;
constexpr int kOneSideGobBlock = 5;
constexpr int kTwoSideGobsBlock = 13;
constexpr int kBlock = 4;  // pictures for rows A and B within one choice of rows C and D

}  // namespace

int PanelPictureIndex(std::int16_t condition, std::int16_t rowA, std::int16_t rowB, std::int16_t rowC,
                      std::int16_t rowD) {
  const int panelRows = (rowA != 0 ? 1 : 0) + (rowB != 0 ? 2 : 0);
  const int c = rowC != 0 ? 1 : 0;
  const int d = rowD != 0 ? 1 : 0;
  switch (condition) {
    case 1:
      return kActiveGobBlock + panelRows;
    case 2:
      return kOneSideGobBlock + kBlock * c + panelRows;
    case 3:
      return kTwoSideGobsBlock + kBlock * (c + 2 * d) + panelRows;
    default:
      return 0;
  }
}

PanelPicture PanelPictureOf(int index) {
  if (index < 0 || index >= kPanelPictures) {
    ThrowSubscript(index, 0, kPanelPictures - 1);
  }
  if (index == 0) {
    return {};
  }
  const int condition = index >= kTwoSideGobsBlock ? 3 : index >= kOneSideGobBlock ? 2 : 1;
  const int first = condition == 3 ? kTwoSideGobsBlock : condition == 2 ? kOneSideGobBlock : kActiveGobBlock;
  const int panelRows = (index - first) % kBlock;
  const int sideRows = (index - first) / kBlock;
  return {condition, panelRows % 2 == 1, panelRows >= 2, sideRows % 2 == 1, sideRows >= 2};
}

}  // namespace korva
