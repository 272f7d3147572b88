#include <gtest/gtest.h>

#include <algorithm>

#include "core/RuntimeError.h"
#include "plan/PanelSchematic.h"

namespace korva {
namespace {

int Count(const Drawing& drawing, DrawLayer layer) {
  return static_cast<int>(std::count_if(drawing.Polygons.begin(), drawing.Polygons.end(),
                                        [layer](const DrawPolygon& p) { return p.Layer == layer; }));
}

// Where the texts of that wording stand: their mean X, or 0 if there is none.
double MeanX(const Drawing& drawing, const std::string& words) {
  double sum = 0;
  int count = 0;
  for (const DrawText& text : drawing.Texts) {
    if (text.Text == words) {
      sum += text.At.X;
      ++count;
    }
  }
  return count == 0 ? 0 : sum / count;
}

TEST(PanelPicture, IndexAndMeaningAreEachOthersReverse) {
  EXPECT_EQ(PanelPictureIndex({PanelLoading::kDevelopmentLoad, true, true, true, true}), 0);
  EXPECT_EQ(PanelPictureIndex({PanelLoading::kActiveSection, false, true, true, true}), 3);
  EXPECT_EQ(PanelPictureIndex({PanelLoading::kWithFirstSideGob, true, false, true, true}), 10);
  EXPECT_EQ(PanelPictureIndex({PanelLoading::kVoskFirstSideGob, true, false, true, true}), 10);
  EXPECT_EQ(PanelPictureIndex({PanelLoading::kWithBothSideGobs, true, true, false, true}), 24);
  EXPECT_EQ(PanelPictureIndex({PanelLoading::kWithBothSideGobs, false, false, true, false}), 17);
  EXPECT_EQ(PanelPictureIndex({PanelLoading{-1}}), 0);
  for (int i = 0; i < kPanelPictures; ++i) {
    EXPECT_EQ(PanelPictureIndex(PanelPictureOf(i)), i);
  }
  EXPECT_THROW(PanelPictureOf(29), RuntimeError);
}

TEST(PanelSchematic, EachPictureShowsWhatItStandsForOnItsSide) {
  for (int i = 0; i < kPanelPictures; ++i) {
    SCOPED_TRACE(i);
    const PanelPicture p = PanelPictureOf(i);
    const auto condition = static_cast<int>(p.Condition);
    const Drawing drawing = PanelSchematic(p);
    const double middle = (drawing.Low.X + drawing.High.X) / 2;
    const auto shown = [&](const char* words) { return MeanX(drawing, words) != 0; };
    EXPECT_EQ(shown("A"), p.RowA);
    EXPECT_EQ(shown("B"), p.RowB);
    EXPECT_EQ(shown("C"), p.RowC);
    EXPECT_EQ(shown("D"), p.RowD);
    EXPECT_EQ(shown("Active gob"), condition >= 1);
    EXPECT_EQ(shown("First side gob"), condition >= 2);
    EXPECT_EQ(shown("Second side gob"), condition == 3);
    EXPECT_EQ(Count(drawing, DrawLayer::kBarrier), std::max(0, condition - 1));
    EXPECT_EQ(Count(drawing, DrawLayer::kActiveMiningZone), condition >= 1 ? 1 : 0);
    EXPECT_EQ(shown("Slab cut"), (condition >= 2 && !p.RowA) || (condition == 3 && !p.RowB));
    for (const char* left : {"A", "C", "First side gob"}) {
      EXPECT_TRUE(!shown(left) || MeanX(drawing, left) < middle) << left;
    }
    for (const char* right : {"B", "D", "Second side gob"}) {
      EXPECT_TRUE(!shown(right) || MeanX(drawing, right) > middle) << right;
    }
    for (const DrawPolygon& polygon : drawing.Polygons) {
      for (const DrawPoint& corner : polygon.Corners) {
        EXPECT_TRUE(corner.X >= drawing.Low.X && corner.X <= drawing.High.X && corner.Y >= drawing.Low.Y &&
                    corner.Y <= drawing.High.Y);
      }
    }
  }
}

}  // namespace
}  // namespace korva
