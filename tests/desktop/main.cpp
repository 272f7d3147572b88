// Runs the form tests without a screen, away from the user's own folders.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace {

// Two screens far apart, the second one a laptop's at 125 percent.
constexpr const char* kScreens =
    R"({"screens": [{"name": "first", "x": 0, "y": 0, "width": 800, "height": 800, "logicalDpi": 96,
                     "logicalBaseDpi": 96, "dpr": 1},
                    {"name": "second", "x": 3000, "y": 0, "width": 1366, "height": 768, "logicalDpi": 96,
                     "logicalBaseDpi": 96, "dpr": 1.25}]})";

}  // namespace

int main(int argc, char** argv) {
  QTemporaryFile screens;
  if (!screens.open() || screens.write(kScreens) < 0 || !screens.flush()) {
    return 1;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
  QStandardPaths::setTestModeEnabled(true);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
