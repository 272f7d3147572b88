#include <gtest/gtest.h>

#include "core/Encoding.h"

namespace korva {
namespace {

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

TEST(Encoding, EveryByteComesBack) {
  EXPECT_EQ(FileBytesFromText(TextFromFileBytes(AllBytes())), AllBytes());
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes = "Grube " + std::string(1, static_cast<char>(byte));
    EXPECT_EQ(FileBytesFromText(TextFromFileBytes(bytes)), bytes) << byte;
  }
}

TEST(Encoding, BytesThatAreNoUtf8AreWindows1252) {
  EXPECT_EQ(TextFromFileBytes("H\xF6"
                              "he \x80 \x9C\xFF"),
            "Höhe € œÿ");
  EXPECT_EQ(TextFromFileBytes("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(Encoding, ValidUtf8IsTakenAsItStands) {
  EXPECT_EQ(TextFromFileBytes("Höhe 漢字"), "Höhe 漢字");
  // One byte beyond it, and the whole file is taken byte by byte.
  EXPECT_EQ(TextFromFileBytes("é\xFC"), "Ã©ü");
}

TEST(Encoding, WritesWindows1252WhereEveryCharacterFits) {
  EXPECT_EQ(FileBytesFromText("Höhe €"),
            "H\xF6"
            "he \x80");
  EXPECT_EQ(FileBytesFromText("Höhe Ω"), "Höhe Ω");
  EXPECT_EQ(FileBytesFromText("\u0080"), "\u0080");  // its byte would be the euro sign
}

TEST(Encoding, WritesUtf8WhereTheBytesWouldReadAsOtherText) {
  EXPECT_EQ(FileBytesFromText("Ã©"), "Ã©");  // as two bytes it would read back as an e with an accent
  EXPECT_EQ(TextFromFileBytes(FileBytesFromText("Ã©")), "Ã©");
  // Next to a byte that no UTF-8 can hold the two bytes are safe.
  EXPECT_EQ(FileBytesFromText("Ã© ü"), "\xC3\xA9 \xFC");
  EXPECT_EQ(TextFromFileBytes(FileBytesFromText("Ã© ü")), "Ã© ü");
}

TEST(Encoding, TellsUtf8FromWhatOnlyLooksLikeIt) {
  for (const char* text : {"", "plain", "é", "€", "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF"}) {
    EXPECT_TRUE(IsUtf8(text)) << text;
  }
  for (const char* bytes :
       {"\x80", "\xC3", "\xC3(", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
    EXPECT_FALSE(IsUtf8(bytes)) << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace korva
