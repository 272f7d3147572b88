#include <gtest/gtest.h>

#include "core/Encoding.h"

namespace korva {
namespace {

TEST(Encoding, EveryByteComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes = "Grube " + std::string(1, static_cast<char>(byte));
    EXPECT_EQ(FileBytesFromText(TextFromFileBytes(bytes)), bytes) << byte;
    all += static_cast<char>(byte);
  }
  EXPECT_EQ(FileBytesFromText(TextFromFileBytes(all)), all);
}

TEST(Encoding, ValidUtf8IsTakenAsItStandsAndOtherBytesAreWindows1252) {
  EXPECT_EQ(TextFromFileBytes("Höhe 漢字"), "Höhe 漢字");
  EXPECT_EQ(TextFromFileBytes("H\xF6h \x80 \x9C\xFF"), "Höh € œÿ");
  EXPECT_EQ(TextFromFileBytes("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(TextFromFileBytes("\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "‚ƒ„…†‡ˆ‰Š‹ŒŽ");
  EXPECT_EQ(TextFromFileBytes("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9E\x9F"), "‘’“”•–—˜™š›žŸ");
  EXPECT_EQ(TextFromFileBytes("é\xFC"), "Ã©ü");  // one byte beyond UTF-8 decides for all
}

TEST(Encoding, WritesWindows1252WhereEveryCharacterFitsAndReadsBack) {
  EXPECT_EQ(FileBytesFromText("Höh €"), "H\xF6h \x80");
  EXPECT_EQ(FileBytesFromText("Ã© ü"), "\xC3\xA9 \xFC");
  for (const char* text : {"Höhe Ω", "\u0080", "Ã©"}) {  // the last as two bytes would read back as é
    EXPECT_EQ(FileBytesFromText(text), text);
  }
}

TEST(Encoding, TellsUtf8FromWhatOnlyLooksLikeIt) {
  for (const char* text : {"", "plain", "é", "€", "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF"}) {
    EXPECT_TRUE(IsUtf8(text)) << text;
  }
  for (const char* bytes : {"\x80", "\xC3", "\xC3(", "\xC1\xBF", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
                            "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
    EXPECT_FALSE(IsUtf8(bytes)) << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace korva
