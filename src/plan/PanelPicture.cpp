#include "plan/PanelPicture.h"

#include <utility>

#include "core/RuntimeError.h"

namespace korva {

namespace {

constexpr int kActiveGobBlock = 1;
constexpr int kOneSideGobBlock = 5;
constexpr int kTwoSideGobsBlock = 13;
constexpr int kBlock = 4;  // pictures for rows A and B within one choice of rows C and D

}  // namespace

int PanelPictureIndex(PanelLoading condition, int rowA, int rowB, int rowC, int rowD) {
  const int panelRows = (rowA != 0 ? 1 : 0) + (rowB != 0 ? 2 : 0);
  const int c = rowC != 0 ? 1 : 0;
  const int d = rowD != 0 ? 1 : 0;
  switch (condition) {
    case PanelLoading::kActiveSection:
      return kActiveGobBlock + panelRows;
    case PanelLoading::kWithFirstSideGob:
      return kOneSideGobBlock + kBlock * c + panelRows;
    case PanelLoading::kWithBothSideGobs:
      return kTwoSideGobsBlock + kBlock * (c + 2 * d) + panelRows;
    case PanelLoading::kDevelopmentLoad:
    case PanelLoading::kVoskFirstSideGob:
      break;
  }
  return 0;
}

PanelPicture PanelPictureOf(int index) {
  if (index < 0 || index >= kPanelPictures) {
    ThrowSubscript(index, 0, kPanelPictures - 1);
  }
  if (index == 0) {
    return {};
  }
  const auto [condition, first] =
      index >= kTwoSideGobsBlock  ? std::pair(PanelLoading::kWithBothSideGobs, kTwoSideGobsBlock)
      : index >= kOneSideGobBlock ? std::pair(PanelLoading::kWithFirstSideGob, kOneSideGobBlock)
                                  : std::pair(PanelLoading::kActiveSection, kActiveGobBlock);
  const int panelRows = (index - first) % kBlock;
  const int sideRows = (index - first) / kBlock;
  return {condition, panelRows % 2 == 1, panelRows >= 2, sideRows % 2 == 1, sideRows >= 2};
}

}  // namespace korva
