#include <gtest/gtest.h>

#include <algorithm>

#include "plan/PanelOverview.h"
#include "support/Panels.h"

namespace korva {
namespace {

std::optional<Drawing> Overview(const Project& project) {
  PlanRequest request;
  request.ProjectCalc = project;
  request.Geometry.SchematicGobs = false;
  std::fill(request.Geometry.PlotXcutSpacing.begin(), request.Geometry.PlotXcutSpacing.end(),
            static_cast<float>(project.XcutSpacing));
  return PanelOverview(request);
}

std::vector<DrawPolygon> Of(const Drawing& drawing, DrawLayer layer) {
  std::vector<DrawPolygon> found;
  std::copy_if(drawing.Polygons.begin(), drawing.Polygons.end(), std::back_inserter(found),
               [layer](const DrawPolygon& polygon) { return polygon.Layer == layer; });
  return found;
}

double Width(const DrawPolygon& polygon) {
  const auto [low, high] =
      std::minmax_element(polygon.Corners.begin(), polygon.Corners.end(),
                          [](const DrawPoint& a, const DrawPoint& b) { return a.X < b.X; });
  return high->X - low->X;
}

TEST(PanelOverview, IsThisPanelToScale) {
  Project project = test::TwoSideGobs();  // five lines of 60 ft, barriers of 60 and 25 ft
  test::SetRows(project, 7, 70);
  const Drawing drawing = Overview(project).value();
  const auto pillars = Of(drawing, DrawLayer::kPillar);
  ASSERT_EQ(pillars.size(), 28U);
  EXPECT_NEAR(Width(pillars[0]), 50, 0.01);
  const auto barriers = Of(drawing, DrawLayer::kBarrier);
  ASSERT_EQ(barriers.size(), 2U);
  EXPECT_NEAR(Width(barriers[0]), 60, 0.01);
  EXPECT_NEAR(Width(barriers[1]), 25, 0.01);
  EXPECT_GT(barriers[0].Corners.size(), 4U) << "the slab cut";
  EXPECT_EQ(barriers[1].Corners.size(), 4U) << "none";
  EXPECT_NEAR(drawing.High.X - drawing.Low.X, 1000 + 60 + 7 * 70 + 20 + 25 + 500, 0.1) << "the least box";
  EXPECT_TRUE(drawing.Texts.empty());
}

TEST(PanelOverview, NamesTheKindsThatStandTogether) {
  EXPECT_TRUE(Overview(test::DevelopmentPanel())->Legend.empty());
  EXPECT_EQ(Overview(test::DevelopmentPanel())->Note, "");
  Project project = test::TwoSideGobs();
  project.RowA = 1;
  project.BreadthAMZ = 100;
  const Drawing drawing = Overview(project).value();
  std::string names;
  for (const LegendEntry& entry : drawing.Legend) {
    names += entry.Text + "|";
  }
  EXPECT_EQ(names, "Pillar|Row left|Barrier pillar|Gob|Active mining zone|");
  project.BreadthAMZ = 1000;  // more than the rows that are drawn
  EXPECT_EQ(Overview(project)->Legend.back().Text, "Active mining zone, not to scale");
  EXPECT_EQ(drawing.Note, "Retreat from top to bottom; gobs cut short");
}

TEST(PanelOverview, IsNothingForAPanelWithoutExtent) {
  EXPECT_FALSE(Overview(Project()).has_value());
  for (void (*put)(Project&) :
       {+[](Project& p) { p.XcutCenters[2] = 0; }, +[](Project& p) { p.XcutCenters[2] = 20; },
        +[](Project& p) { p.XcutSpacing = 20; }}) {
    Project project = test::DevelopmentPanel();
    put(project);
    EXPECT_FALSE(Overview(project).has_value()) << "entries or crosscuts that meet";
  }
}

}  // namespace
}  // namespace korva
