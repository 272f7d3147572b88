#include <gtest/gtest.h>

#include "core/History.h"

namespace korva {
namespace {

Settings Logging(std::int16_t size = 4096) {
  Settings settings;
  settings.DisplayHistoryWin = 1;
  settings.MaxDisplaySize = size;
  return settings;
}

TEST(History, NumbersItsLines) {
  History history;
  HistoryLog(history, Logging(), "Opening: a.kvl");
  HistoryLog(history, Logging(), "done");
  EXPECT_EQ(history.Text, "1. Opening: a.kvl\r\n2. done\r\n");
}

TEST(History, KeepsNothingWhileItsWindowIsClosed) {
  History history;
  HistoryLog(history, Settings{}, "unseen");
  EXPECT_EQ(history.Text, "");
  EXPECT_EQ(history.HistoryCounter, 0);
}

TEST(History, IsCutToTwoLinesWhenFull) {
  History history;
  for (const char* line : {"aaaa", "bbbb", "cccc"}) {  // 9 characters each
    HistoryLog(history, Logging(28), line);
  }
  HistoryLog(history, Logging(28), "dddd");
  EXPECT_EQ(history.Text, "1. aaaa\r\n2. bbbb\r\n3. cccc\r\n4. dddd\r\n");  // 27 characters did not fill it
  HistoryLog(history, Logging(36), "eeee");
  EXPECT_EQ(history.Text, "3. cccc\r\n4. dddd\r\n5. eeee\r\n");
}

TEST(History, TwoLinesStayHoweverLong) {
  History history;
  HistoryLog(history, Logging(4), "a long line");
  HistoryLog(history, Logging(4), "another long line");
  HistoryLog(history, Logging(4), "c");
  EXPECT_EQ(history.Text, "1. a long line\r\n2. another long line\r\n3. c\r\n");
}

TEST(History, NumbersRestartBehindTheLastOne) {
  History history;
  history.HistoryCounter = 16383;
  HistoryLog(history, Logging(), "last");
  HistoryLog(history, Logging(), "first");
  EXPECT_EQ(history.Text, "16384. last\r\n1. first\r\n");
}

}  // namespace
}  // namespace korva
