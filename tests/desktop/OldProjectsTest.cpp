// Projects of every format that the program reads, opened and shown in the parameters form.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QRadioButton>
#include <algorithm>

#include "commands/FileCommands.h"
#include "core/Text.h"
#include "desktop/FormBench.h"
#include "desktop/input/frmKORVAParm.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

// A line of a project file: what it holds, the control that shows it, and the format that brought it.
struct FileLine {
  std::string Text;
  std::string Control;
  int Since = 50;
};

const std::vector<FileLine> kPanel = {
    {"6.5", "txtEntryHeight"},
    {"812.5", "txtDepthCover"},
    {"70", "txtXcutAngle"},
    {"19", "txtEntryWidth"},
    {"85", "txtXcutSpacing"},
    {" 4 ", "txtNumberEntries"},
    {"81", "txtXcutCenters(1)"},
    {"82", "txtXcutCenters(2)"},
    {"83", "txtXcutCenters(3)"},
    {"910", "txtCoalStrength"},
    {"161", "txtUnitWeight"},
    {"143", "txtBreadthAMZ"},
    {" 0 ", "chkAMZ"},
    {" 0 ", "chkArch", 53},
    {" 3 ", "optAnal"},
    {" 9 ", "", 51},
    {"0.87", "txtArchFactor", 52},
    {" 2 ", "optLam", 54},
    {"1001", "txtExtentActiveGob"},
    {"22", "txtAbutmentAngleActiveGob"},
    {"1002", "txtExtentFirstGob"},
    {"23", "txtAbutmentAngleFirstGob"},
    {"151", "txtBarrierFirstGob"},
    {"31", "txtSlabcutFirstGob"},
    {"1003", "txtExtentSecondGob"},
    {"24", "txtAbutmentAngleSecondGob"},
    {"152", "txtBarrierSecondGob"},
    {"0", "txtSlabcutSecondGob"},
    {" 0 ", "chkRowA", 53},
    {" 1 ", "chkRowB", 53},
    {" 1 ", "chkRowC", 53},
    {" 0 ", "chkRowD", 53},
    {"55.5", "txtWidthC", 53},
    {"66.25", "txtWidthD", 53},
};

std::vector<FileLine> LinesOf(int format) {
  std::vector<FileLine> lines = kPanel;
  std::erase_if(lines, [format](const FileLine& line) { return line.Since > format; });
  return lines;
}

// The sibling program knows no model and no former condition, and has the arch factor before its box.
std::vector<FileLine> LinesOfVosk() {
  std::vector<FileLine> lines = LinesOf(53);
  std::erase_if(lines, [](const FileLine& line) { return line.Control.empty(); });
  const auto factor = std::find_if(lines.begin(), lines.end(),
                                   [](const FileLine& line) { return line.Control == "txtArchFactor"; });
  std::rotate(factor - 2, factor, factor + 1);
  return lines;
}

class OldProjects : public testing::Test {
 protected:
  void Write(const std::string& head, const std::vector<FileLine>& lines) {
    std::string text = head;
    for (const FileLine& line : lines) {
      text += line.Text + "\r\n";
    }
    bench.State.ProjectFileName = folder.Put("panel", text);
  }

  void ExpectShown(const std::vector<FileLine>& lines) {
    const frmKORVAParm form(bench.Forms);
    for (const FileLine& line : lines) {
      const std::string number(Trimmed(line.Text));
      const std::string option = line.Control + "(" + number + ")";
      if (line.Control == "txtArchFactor" && The<QCheckBox>(form, "chkArch").isChecked()) {
        continue;  // as it was before the file could say that a factor is entered
      }
      if (line.Control.starts_with("txt")) {
        EXPECT_EQ(The<FieldBox>(form, line.Control.c_str()).Text(), number) << line.Control;
      } else if (line.Control.starts_with("chk")) {
        EXPECT_EQ(The<QCheckBox>(form, line.Control.c_str()).isChecked(), number == "1") << line.Control;
      } else if (line.Control.starts_with("opt")) {
        EXPECT_TRUE(The<QRadioButton>(form, option.c_str()).isChecked()) << option;
      }
    }
  }

  TempFolder folder;
  FormBench bench;
};

TEST_F(OldProjects, ShowEveryFieldInTheForm) {
  int format = 50;
  for (const char* magic : {"KORVA_500", "KORVA_501", "KORVA_601", "KORVA_602", "KORVA_603"}) {
    SCOPED_TRACE(magic);
    bench.State.Stored = {};
    Write(std::string(magic) + "\r\n 1 \r\nNorth\r\n##StartDesc##\r\nA panel\r\n##EndDesc##\r\n",
          LinesOf(format));
    ASSERT_TRUE(FileOpen(bench.State, bench.Ports.Messages));
    ExpectShown(LinesOf(format));
    EXPECT_EQ(bench.State.Stored.ProjectInput.ArchAuto, format < 53 ? 1 : 0);
    ++format;
  }
}

TEST_F(OldProjects, ThoseOfTheSiblingShowEveryFieldToo) {
  Write("VOSK_103\r\n 1 \r\nNorth\r\n##StartDesc##\r\nA panel\r\n##EndDesc##\r\n##KORVA START##\r\n",
        LinesOfVosk());
  ASSERT_TRUE(FileOpenVOSK(bench.State, bench.Ports.Messages));
  ExpectShown(LinesOfVosk());
}

}  // namespace
}  // namespace korva::desktop
