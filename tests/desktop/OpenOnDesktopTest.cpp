// Opening documents: what the desktop's opener says counts.
#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>

#include "desktop/services/OpenOnDesktop.h"
#include "support/Environment.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

using namespace std::chrono_literals;

class OpenDocument : public testing::Test {
 protected:
  // An opener that writes down what it was given and then does `rest`.
  void Opener(const std::string& rest) {
    folder.Put("xdg-open", "#!/bin/sh\nprintf '%s|' \"$@\" >'" + folder / "given'\n" + rest + "\n");
    std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms(0755));
  }

  TempFolder folder;
  EnvironmentValue path{"PATH", folder / "" + ':' + std::getenv("PATH")};
};

TEST_F(OpenDocument, BelievesTheDesktop) {
  const QUrl file = QUrl::fromLocalFile(QStringLiteral("/a/panel 50% #1.pdf"));
  Opener("exit 0");
  EXPECT_TRUE(OpenOnDesktop(file));
  EXPECT_EQ(TempFolder::Bytes(folder / "given"), "/a/panel 50% #1.pdf|");
  EXPECT_TRUE(OpenOnDesktop(QUrl(QStringLiteral("https://example.invalid/a b/"))));
  EXPECT_EQ(TempFolder::Bytes(folder / "given"), "https://example.invalid/a%20b/|");
  Opener("exit 3");
  EXPECT_FALSE(OpenOnDesktop(file));
  Opener("kill -9 $$");
  EXPECT_FALSE(OpenOnDesktop(file));
  folder.Put("xdg-open", "");  // nothing that can be started
  EXPECT_FALSE(OpenOnDesktop(file));
}

TEST_F(OpenDocument, LeavesAViewerRunning) {
  Opener("until [ -e '" + folder / "end' ]; do sleep 0.01; done; touch '" + folder / "ended'");
  EXPECT_TRUE(OpenOnDesktop(QUrl::fromLocalFile(QStringLiteral("/a.pdf")), 50ms));
  EXPECT_FALSE(std::filesystem::exists(folder / "ended"));
  folder.Put("end", "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder / "ended"); }));
}

}  // namespace
}  // namespace korva::desktop
