#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "model/KORVAmodel.h"
#include "support/Panels.h"

namespace korva {
namespace {

using test::AtCondition;
using test::TwoSideGobs;

struct Fault {
  void (*put)(Project&);
  const char* message;
  int from = 0;  // the first loading condition that minds
};

// Every check in its order; a fault repairs nothing of those behind it. Lower bounds count only where the gob
// plays a part, upper bounds everywhere. Both slab cuts are compared with their rows from the first side gob
// on.
const std::vector<Fault> kFaults = {
    {[](Project& p) { p.EntryHeight = 0; }, "Invalid entry height"},
    {[](Project& p) { p.DepthCover = 0; }, "Invalid depth of cover"},
    {[](Project& p) { p.XcutAngle = 90.5; }, "Invalid crosscut angle"},
    {[](Project& p) { p.EntryWidth = 0; }, "Invalid entry width"},
    {[](Project& p) { p.XcutSpacing = 0; }, "Invalid crosscut spacing"},
    {[](Project& p) { p.CoalStrength = 0; }, "Invalid coal strength"},
    {[](Project& p) { p.BreadthAMZ = 0; }, "Invalid breadth of AMZ"},
    {[](Project& p) { p.UnitWeight = 0; }, "Invalid unit weight"},
    {[](Project& p) { p.ArchFactor = 1.01F; }, "Invalid Arch Percent"},
    {[](Project& p) { p.RowC = 1; }, "Invalid Pillar Width for Row C"},
    {[](Project& p) { p.RowD = 1; }, "Invalid Pillar Width for Row D"},
    {[](Project& p) { p.RowA = 1, p.SlabcutFirstGob = 0.5; },
     "Cannot take slab cut from first side barrier when Row A pillars are left", 2},
    {[](Project& p) { p.RowB = 1, p.SlabcutSecondGob = 0.5; },
     "Cannot take slab cut from second side barrier when Row B pillars are left", 2},
    {[](Project& p) { p.ExtentActiveGob = -0.5; }, "Invalid extent of active gob"},
    {[](Project& p) { p.AbutmentAngleActiveGob = 90.5; }, "Invalid abutment angle of active gob"},
    {[](Project& p) { p.ExtentFirstGob = -0.5; }, "Invalid extent of first gob", 2},
    {[](Project& p) { p.AbutmentAngleFirstGob = 90.5; }, "Invalid abutment angle of first gob"},
    {[](Project& p) { p.AbutmentAngleFirstGob = -0.5; }, "Invalid abutment angle of first gob", 2},
    {[](Project& p) { p.BarrierFirstGob = -1, p.SlabcutFirstGob = -2; },
     "Invalid extent of barrier of first gob", 2},
    {[](Project& p) { p.SlabcutFirstGob = 60.5; }, "Invalid extent of slab cut in barrier of first gob"},
    {[](Project& p) { p.SlabcutFirstGob = -0.5; }, "Invalid extent of slab cut in barrier of first gob", 2},
    {[](Project& p) { p.ExtentSecondGob = -0.5; }, "Invalid extent of second gob", 3},
    {[](Project& p) { p.AbutmentAngleSecondGob = 90.5; }, "Invalid abutment angle of second gob"},
    {[](Project& p) { p.AbutmentAngleSecondGob = -0.5; }, "Invalid abutment angle of second gob", 3},
    {[](Project& p) { p.BarrierSecondGob = -1, p.SlabcutSecondGob = -2; },
     "Invalid extent of barrier of second gob", 3},
    {[](Project& p) { p.SlabcutSecondGob = 25.5; }, "Invalid extent of slab cut in barrier of second gob"},
    {[](Project& p) { p.SlabcutSecondGob = -0.5; }, "Invalid extent of slab cut in barrier of second gob", 3},
    {[](Project& p) { p.XcutCenters[2] = 0; }, "Invalid center-to-center distance #2"},
};

TEST(CheckProject, NamesEachFaultAndTheFirstOfSeveral) {
  Project all = TwoSideGobs();
  for (auto fault = kFaults.rbegin(); fault != kFaults.rend(); ++fault) {
    for (int condition = 0; condition <= 3; ++condition) {
      Project p = AtCondition(TwoSideGobs(), condition);
      fault->put(p);
      EXPECT_EQ(CheckProject(p).value_or("passed"), condition < fault->from ? "passed" : fault->message);
    }
    fault->put(all);
    EXPECT_EQ(CheckProject(all), fault->message);
  }
}

TEST(CheckProject, TakesTheLimitsThemselves) {
  for (const auto put : std::vector<void (*)(Project&)>{
           [](Project& p) { p.XcutAngle = 0; }, [](Project& p) { p.XcutAngle = 90; },
           [](Project& p) { p.ArchFactor = 0; }, [](Project& p) { p.ArchFactor = 1; },
           [](Project& p) { p.AbutmentAngleActiveGob = p.ExtentFirstGob = 0, p.AbutmentAngleFirstGob = 90; },
           [](Project& p) { p.SlabcutFirstGob = p.BarrierFirstGob; },
           [](Project& p) { p.RowC = 2; },                         // only 1 leaves a row
           [](Project& p) { p.RowA = 1, p.SlabcutFirstGob = 0; },  // nothing cut beside it
           [](Project& p) { p.RowB = 1; },                         // the slab is cut on the other side
           [](Project& p) { p.NumberEntries = 3, p.XcutCenters[3] = -1; },  // not in use
           [](Project& p) { p.XcutSpacing = p.XcutCenters[1] = 1; }         // narrower than the entry
       }) {
    Project p = TwoSideGobs();
    put(p);
    EXPECT_EQ(CheckProject(p), std::nullopt);
  }
}

}  // namespace
}  // namespace korva
