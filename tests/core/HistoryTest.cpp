#include <gtest/gtest.h>

#include "core/History.h"

namespace korva {
namespace {

Settings Logging(int size) {
  Settings settings;
  settings.DisplayHistoryWin = true;
  settings.MaxDisplaySize = size;
  return settings;
}

TEST(History, IsCutToTwoLinesWhenFull) {
  History history;
  HistoryLog(history, Settings{}, "unseen while the window is closed");
  for (const char* line : {"aaaa", "bbbb", "cccc", "dddd"}) {  // 9 characters each
    HistoryLog(history, Logging(28), line);
  }
  EXPECT_EQ(history.Text, "1. aaaa\r\n2. bbbb\r\n3. cccc\r\n4. dddd\r\n");  // 27 characters did not fill it
  HistoryLog(history, Logging(36), "eeee");
  EXPECT_EQ(history.Text, "3. cccc\r\n4. dddd\r\n5. eeee\r\n");
  HistoryLog(history, Logging(4), "f");  // two lines stay, however long
  EXPECT_EQ(history.Text, "4. dddd\r\n5. eeee\r\n6. f\r\n");
}

TEST(History, NumbersRestartBehindTheLastOne) {
  History history;
  history.HistoryCounter = 16383;
  HistoryLog(history, Logging(4096), "last");
  HistoryLog(history, Logging(4096), "first");
  EXPECT_EQ(history.Text, "16384. last\r\n1. first\r\n");
}

}  // namespace
}  // namespace korva
