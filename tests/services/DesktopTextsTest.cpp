#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "services/DesktopTexts.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

// What a desktop makes of an Exec line: the entry's escapes are undone, then the command is split and its
// quotes and escapes are undone.
std::vector<std::string> WordsOfExec(std::string_view value) {
  std::string command;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\') {
      ++i;
      EXPECT_TRUE(i < value.size() && value[i] == '\\') << "an escape that entries do not have: " << value;
    }
    command += value[i];
  }
  std::vector<std::string> words(1);
  bool quoted = false;
  for (std::size_t i = 0; i < command.size(); ++i) {
    const char c = command[i];
    if (c == '"') {
      quoted = !quoted;
    } else if (c == '\\' && quoted) {
      words.back() += command.at(++i);
    } else if (c == ' ' && !quoted) {
      words.emplace_back();
    } else {
      EXPECT_TRUE(quoted || std::string_view("'\\><~|&;$*?#()`").find(c) == std::string_view::npos)
          << command;
      words.back() += c;
    }
  }
  EXPECT_FALSE(quoted);
  return words;
}

TEST(DesktopTexts, ExecNamesTheProgramWhateverItsPathHolds) {
  EXPECT_EQ(ExecValue("/usr/bin/korva-strond"), "/usr/bin/korva-strond %f");
  EXPECT_EQ(ExecValue("/opt/my \"$x\"/k"), R"("/opt/my \\"\\$x\\"/k" %f)");
  for (const std::string path :
       {"/opt/a b/k", "/o'p/t", R"(/a\b/"c"/`d`/$e)", R"(/\\/"")", "/ä ö/k", "/x;y&z|(a)<b>*?#~/k"}) {
    EXPECT_TRUE(CanNameProgram(path)) << path;
    EXPECT_EQ(WordsOfExec(ExecValue(path)), (std::vector<std::string>{path, "%f"}));
  }
  for (const char* path : {"/a=b/k", "/50%/k", "/a\nb/k", "/\xFF/k"}) {
    EXPECT_FALSE(CanNameProgram(path)) << path;
  }
}

// What the package installs for all users and what the program writes for one are told in the same words.
TEST(DesktopTexts, AreThoseOfThePackage) {
  const std::string packaging = KORVA_PACKAGING;
  EXPECT_EQ(TempFolder::Bytes(packaging + "/korva-strond.desktop"), ProgramEntryText("korva-strond"));
  EXPECT_EQ(TempFolder::Bytes(packaging + "/korva-strond.xml"), ProjectTypeText("KVL", 50));
  EXPECT_NE(ProjectTypeText("K1", 60).find("<glob weight=\"60\" pattern=\"*.K1\"/>\n    <glob weight=\"60\" "
                                           "pattern=\"*.k1\"/>\n  </mime-type>"),
            std::string::npos);
  const std::string digits = ProjectTypeText("007", 60);
  EXPECT_EQ(digits.find("*.007"), digits.rfind("*.007")) << "no small letters, one pattern";
}

struct Edit {
  std::string Before;
  std::string After;
  std::string Removed;  // from After
};

TEST(DesktopTexts, TheListOfDefaultsKeepsEveryOtherByte) {
  const std::string own = "application/x-korva-strond=korva-strond.desktop;";
  const std::string head = "[Default Applications]\n";
  const std::vector<Edit> edits = {
      {"", head + own + "\n", head},
      {"# mine\n[Added Associations]\ntext/plain=ed.desktop;\n\n\n",
       "# mine\n[Added Associations]\ntext/plain=ed.desktop;\n\n\n\n" + head + own + "\n",
       "# mine\n[Added Associations]\ntext/plain=ed.desktop;\n\n\n\n" + head},
      {head + "# a=b\ntext/plain = ed.desktop\n\n[Other]\nx=y",
       head + own + "\n# a=b\ntext/plain = ed.desktop\n\n[Other]\nx=y",
       head + "# a=b\ntext/plain = ed.desktop\n\n[Other]\nx=y"},
      {"[Default Applications]\r\na/b=c.desktop;\r\n",
       "[Default Applications]\r\n" + own + "\r\na/b=c.desktop;\r\n",
       "[Default Applications]\r\na/b=c.desktop;\r\n"},
      {"[Default Applications]", "[Default Applications]\n" + own + "\n", head},
      {"[X]", "[X]\n\n" + head + own + "\n", "[X]\n\n" + head},
      // Others stay behind it, and come back.
      {head + "application/x-korva-strond= ed.desktop ; gedit.desktop\nz=1\n",
       head + "application/x-korva-strond=korva-strond.desktop;ed.desktop;gedit.desktop;\nz=1\n",
       head + "application/x-korva-strond=ed.desktop;gedit.desktop;\nz=1\n"},
      {head + "application/x-korva-strond=ed.desktop;korva-strond.desktop;",
       head + "application/x-korva-strond=korva-strond.desktop;ed.desktop;",
       head + "application/x-korva-strond=ed.desktop;"},
      // The same key elsewhere is none of its business; of two in the group the last one counts.
      {"[Added Associations]\n" + own + "\n" + head + own + "\n" + own + "\n",
       "[Added Associations]\n" + own + "\n" + head + own + "\n" + own + "\n",
       "[Added Associations]\n" + own + "\n" + head},
      {std::string("\0\xFF\r[", 4) + head, std::string("\0\xFF\r[", 4) + head + "\n" + head + own + "\n",
       std::string("\0\xFF\r[", 4) + head + "\n" + head}};
  for (const Edit& edit : edits) {
    EXPECT_EQ(WithDefaultProgram(edit.Before), edit.After);
    EXPECT_EQ(WithDefaultProgram(edit.After), edit.After) << "again";
    EXPECT_EQ(WithoutDefaultProgram(edit.After), edit.Removed);
  }
}

}  // namespace
}  // namespace korva
