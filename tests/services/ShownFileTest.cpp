#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "core/Encoding.h"
#include "services/ShownFile.h"
#include "support/ExpectError.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

class ShownFileTest : public testing::Test {
 protected:
  // The text that `bytes` give; every piece is well formed in itself.
  std::string Shown(std::string_view bytes, const ShownLimits& limits = {}) {
    ShownFile file(folder.Put("file", bytes), limits);
    std::string text;
    int percent = 0;
    while (!file.Ended()) {
      const std::string piece = file.Next();
      EXPECT_TRUE(IsUtf8(piece));
      EXPECT_TRUE(piece.empty() || piece.ends_with('\n') || file.Ended());
      EXPECT_GE(file.Percent(), percent);
      percent = file.Percent();
      text += piece;
    }
    EXPECT_EQ(percent, 100);
    cut = file.IsCut();
    return text;
  }

  TempFolder folder;
  bool cut = false;
};

TEST_F(ShownFileTest, LineEndsAndControlsBecomeHarmless) {
  EXPECT_EQ(Shown(""), "");
  EXPECT_EQ(Shown("a\r\nb\rc\nd\n\r\n\r\re"), "a\nb\nc\nd\n\n\n\ne");
  EXPECT_EQ(Shown(std::string_view("\0\tx\x1B\f\x7F", 6)), "␀\tx␛␌␡");
  EXPECT_EQ(Shown("\xEF\xBB\xBF"
                  "a\u2028\u2029\u0085\uFFFC\uFFFF\uFDD0\xEF\xBB\xBF"),
            "a\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\xEF\xBB\xBF");
  EXPECT_FALSE(cut);
}

TEST_F(ShownFileTest, PiecesBreakNeitherCharactersNorLineEnds) {
  for (std::size_t shift = 0; shift < 4; ++shift) {
    const std::string front(16384 - 2 + shift, 'a');
    for (const char* middle : {"é", "€", "\U0001F600", "\r\n", "\n\n"}) {
      std::string expected = front + middle + "z";
      for (std::size_t at = 0; (at = expected.find('\r', at)) != std::string::npos;) {
        expected.erase(at, 1);
      }
      std::string text = Shown(front + middle + "z");
      std::string unbroken;  // without the ends that were put into the long line
      for (std::size_t column = 0; const char c : text) {
        if (c == '\n' && column == 1000) {
          column = 0;
          continue;
        }
        column = c == '\n' ? 0 : column + 1;
        unbroken += c;
      }
      EXPECT_EQ(unbroken, expected) << shift << " " << middle;
    }
  }
}

TEST_F(ShownFileTest, OneWrongByteFarBehindMakesAllOfItWindows1252) {
  const std::string far(600'000, '\n');
  EXPECT_EQ(Shown("é" + far + "é"), "é" + far + "é");
  EXPECT_EQ(Shown("é" + far + "\xE9"), "Ã©" + far + "é");
  EXPECT_EQ(Shown("é" + far + "\xC3"), "Ã©" + far + "Ã") << "a character that the end of the file breaks";
}

TEST_F(ShownFileTest, LimitsHold) {
  EXPECT_EQ(Shown("xxxxxyyyyyzz", {.Columns = 5}), "xxxxx\nyyyyy\nzz");
  EXPECT_EQ(Shown("xxxxx\ny", {.Columns = 5}), "xxxxx\ny") << "no line more";
  EXPECT_EQ(Shown("a\nb\nc", {.Lines = 3}), "a\nb\nc");
  EXPECT_FALSE(cut);
  EXPECT_EQ(Shown("a\nb\nc\nd", {.Lines = 3}), "a\nb\nc\n");
  EXPECT_TRUE(cut);
  EXPECT_EQ(Shown("ab€", {.Bytes = 5}), "ab€");
  EXPECT_FALSE(cut);
  EXPECT_EQ(Shown("ab€€", {.Bytes = 6}), "ab€\uFFFD") << "the limit breaks a character, not the encoding";
  EXPECT_TRUE(cut);
}

TEST_F(ShownFileTest, RandomBytesAreText) {
  std::mt19937 random(7);
  std::string bytes(300'000, '\0');
  for (char& c : bytes) {
    c = static_cast<char>(random());
  }
  const std::string text = Shown(bytes);
  for (const char c : text) {
    EXPECT_FALSE(static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n');
  }
  EXPECT_GT(text.size(), bytes.size());
}

TEST_F(ShownFileTest, RefusesWhatIsNoFileAndSurvivesOneThatShrinks) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder / "pipe", folder / "", std::string("/dev/zero")}) {
    ExpectError(ErrorNumber::kPathFileAccess, [&] { ShownFile file(path); });
  }
  ExpectError(ErrorNumber::kFileNotFound, [&] { ShownFile file(folder / "none"); });
  const std::string path = folder.Put("file", std::string(100'000, 'x'));
  if (::geteuid() != 0) {
    ::chmod(path.c_str(), 0);
    ExpectError(ErrorNumber::kPermissionDenied, [&] { ShownFile file(path); });
    ::chmod(path.c_str(), 0600);
  }
  ShownFile file(path);
  file.Next();
  std::filesystem::resize_file(path, 10);
  for (int step = 0; step < 10; ++step) {
    file.Next();
  }
  EXPECT_TRUE(file.Ended());
}

}  // namespace
}  // namespace korva
