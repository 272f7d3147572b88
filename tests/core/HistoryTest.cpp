#include <gtest/gtest.h>

#include "core/Korva.h"

namespace korva {
namespace {

struct SessionHistory : testing::Test {
  void Log(int size, std::string_view line) {
    korva.Preferences.MaxDisplaySize = size;
    HistoryLog(korva, line);
  }

  Korva korva;
  const std::string& text = korva.SessionHistory.Text;
};

TEST_F(SessionHistory, IsCutToTwoLinesWhenFull) {
  korva.Preferences.DisplayHistoryWin = false;
  Log(28, "unseen while the window is closed");
  korva.Preferences.DisplayHistoryWin = true;
  for (const char* line : {"aaaa", "bbbb", "cccc", "dddd"}) {  // 9 characters each
    Log(28, line);
  }
  EXPECT_EQ(text, "1. aaaa\r\n2. bbbb\r\n3. cccc\r\n4. dddd\r\n");  // 27 characters did not fill it
  Log(36, "eeee");
  EXPECT_EQ(text, "3. cccc\r\n4. dddd\r\n5. eeee\r\n");
  Log(4, "f");  // two lines stay, however long
  EXPECT_EQ(text, "4. dddd\r\n5. eeee\r\n6. f\r\n");
}

TEST_F(SessionHistory, NumbersRestartBehindTheLastOne) {
  korva.Preferences.DisplayHistoryWin = true;
  korva.SessionHistory.HistoryCounter = 16383;
  Log(4096, "last");
  Log(4096, "first");
  EXPECT_EQ(text, "16384. last\r\n1. first\r\n");
}

}  // namespace
}  // namespace korva
