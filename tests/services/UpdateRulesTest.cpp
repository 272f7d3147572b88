// What the update check takes from a server, and what it does not.
#include <gtest/gtest.h>

#include "core/Version.h"
#include "services/SetupSignature.h"
#include "services/UpdateRules.h"
#include "support/SignedSetup.h"

namespace korva {
namespace {

using namespace std::chrono;

TEST(UpdateRules, TakesDigitsAsAVersionAndNothingElse) {
  for (const char* file :
       {"1106", "1106\r\n", "1106\n", "1106,more\r\n", "\"1106\"\r\n", "  1106\nx", "1106\r"}) {
    EXPECT_EQ(ReadServerVersion(file), "1106") << file;
  }
  for (const char* file : {"", " ", "\r\n", "\n", "1.1.06", "v1106", "<html>", "../1106", "1106 ", "11 06",
                           "-1", "\xC3\xA9", "1234567890", "1106\x01", ",1106", "\"\""}) {
    EXPECT_EQ(ReadServerVersion(file), "") << file;
  }
  EXPECT_EQ(ReadServerVersion(std::string("11\0"
                                          "06",
                                          5)),
            "");
}

TEST(UpdateRules, ComparesVersionsAsTexts) {
  EXPECT_TRUE(IsNewerVersion("1106", "1105"));
  EXPECT_TRUE(IsNewerVersion("999", "1105"));
  EXPECT_TRUE(IsNewerVersion("11050", "1105"));
  EXPECT_FALSE(IsNewerVersion("1105", "1105"));
  EXPECT_FALSE(IsNewerVersion("10000", "1105"));
  EXPECT_FALSE(IsNewerVersion("", "1105"));
}

TEST(UpdateRules, TrustsHttpsAndThisMachine) {
  EXPECT_TRUE(IsTrustedConnection("https", "www.example.org"));
  EXPECT_TRUE(IsTrustedConnection("http", "127.0.0.1"));
  EXPECT_TRUE(IsTrustedConnection("http", "::1"));
  EXPECT_FALSE(IsTrustedConnection("http", "www.example.org"));
  EXPECT_FALSE(IsTrustedConnection("http", "127.0.0.1.example.org"));
  EXPECT_FALSE(IsTrustedConnection("file", ""));
  EXPECT_FALSE(IsTrustedConnection("ftp", "127.0.0.1"));
  EXPECT_FALSE(IsTrustedConnection("https", ""));
  EXPECT_FALSE(CanExist("www.korva-strond.invalid") || CanExist("invalid") || CanExist("a.invalid."));
  EXPECT_TRUE(CanExist("www.example.org") && CanExist("notinvalid"));
  EXPECT_TRUE(MayRedirect("https", "https", "mirror.example.org"));
  EXPECT_TRUE(MayRedirect("http", "https", "mirror.example.org"));
  EXPECT_FALSE(MayRedirect("https", "http", "127.0.0.1")) << "never back to plain http";
  EXPECT_FALSE(MayRedirect("http", "http", "mirror.example.org"));
}

TEST(UpdateRules, TellsDaysAndBytes) {
  EXPECT_TRUE(ReleasedText(sys_days{2024y / February / 19})
                  .starts_with("This version was released 365 days ago. \r\n\r\nAlthough"));
  EXPECT_EQ(ProgressOfDownload(0), 0);
  EXPECT_EQ(ProgressOfDownload(1), 1);
  EXPECT_EQ(ProgressOfDownload(16384 * 99), 99);
  EXPECT_EQ(ProgressOfDownload(16384 * 99 + 1), 0);
}

constexpr std::string_view kName = "KORVA-STROND1106.exe";

TEST(SetupSignature, BelongsToItsFileAndName) {
  using namespace test;
  EXPECT_EQ(SignatureFault(kSetup, kName, kSetupSignature, kSetupKey), "");
  EXPECT_EQ(SignatureFault(kSetup, kName, kOldStyleSignature, kSetupKey), "");
  EXPECT_EQ(SignatureFault("setup of a Test\n", kName, kSetupSignature, kSetupKey),
            "the signature does not belong to the file");
  EXPECT_EQ(SignatureFault("", kName, kSetupSignature, kSetupKey),
            "the signature does not belong to the file");
  EXPECT_EQ(SignatureFault(kSetup, kName, kOtherNameSignature, kSetupKey),
            "the signature was made for a file of another name");
  EXPECT_EQ(SignatureFault(kSetup, "KORVA-STROND1107.exe", kSetupSignature, kSetupKey),
            "the signature was made for a file of another name");
}

TEST(SetupSignature, RefusesWhatWasTamperedWith) {
  using namespace test;
  const std::string_view good = kSetupSignature;
  const std::string comment = std::string(good).replace(good.find("1106.exe"), 4, "1107");
  EXPECT_EQ(SignatureFault(kSetup, "KORVA-STROND1107.exe", comment, kSetupKey),
            "the signature does not belong to the file")
      << "the comment is signed, too";
  // Any character of the signed lines, cut off anywhere.
  const std::size_t second = good.find('\n') + 1;
  for (std::size_t place = second; place + 1 < good.size(); ++place) {
    EXPECT_NE(SignatureFault(kSetup, kName, Altered(good, place), kSetupKey), "") << place;
  }
  for (std::size_t length = 0; length + 1 < good.size(); ++length) {
    EXPECT_NE(SignatureFault(kSetup, kName, good.substr(0, length), kSetupKey), "") << length;
  }
}

TEST(SetupSignature, NeedsTheMakersKey) {
  using namespace test;
  EXPECT_EQ(SignatureFault(kSetup, kName, kSetupSignature, ""),
            "this program has no key to check signatures with");
  EXPECT_EQ(SignatureFault(kSetup, kName, kSetupSignature, "no key"),
            "this program has no key to check signatures with");
  EXPECT_EQ(SignatureFault(kSetup, kName, kSetupSignature, Altered(kSetupKey, 5)),
            "the signature was made with another key");
  EXPECT_EQ(SignatureFault(kSetup, kName, kSetupSignature, Altered(kSetupKey, 40)),
            "the signature does not belong to the file");
  EXPECT_EQ(SignatureFault(kSetup, kName, "<html>404</html>", kSetupKey), "the signature is malformed");
}

}  // namespace
}  // namespace korva
