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

int PanelPictureIndex(const PanelPicture& picture) {
  const int panelRows = (picture.RowA ? 1 : 0) + (picture.RowB ? 2 : 0);
  const int c = picture.RowC ? 1 : 0;
  const int d = picture.RowD ? 1 : 0;
  switch (picture.Condition) {
    case PanelLoading::kActiveSection:
      return kActiveGobBlock + panelRows;
    case PanelLoading::kWithFirstSideGob:
    case PanelLoading::kVoskFirstSideGob:
      return kOneSideGobBlock + kBlock * c + panelRows;
    case PanelLoading::kWithBothSideGobs:
      return kTwoSideGobsBlock + kBlock * (c + 2 * d) + panelRows;
    case PanelLoading::kDevelopmentLoad:
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
