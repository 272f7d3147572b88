#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "desktop/FormBench.h"
#include "desktop/services/QtPorts.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

// The name that comes of `typed` with the filter that lies `down` below the first one.
std::string Chosen(const std::string& folder, const char* typed, int down) {
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    auto& filters = The<QComboBox>(*dialog, "fileTypeCombo");
    for (int i = 0; i < down; ++i) {
      QTest::keyClick(&filters, Qt::Key_Down);
    }
    The<QLineEdit>(*dialog, "fileNameEdit").setText(QLatin1String(typed));
    QTest::keyClick(&The<QLineEdit>(*dialog, "fileNameEdit"), Qt::Key_Return);
  });
  const FileQuestion question = {
      .Save = true,
      .Title = "Save Picture",
      .Folder = folder,
      .Name = "panel.svg",
      .DefaultExtension = "svg",
      .Filters = {"Scalable picture (*.svg)", "Portable document (*.pdf)", "All (*.*)"}};
  return QtFileChoice().ChooseFile(question).value_or("none");
}

TEST(QtFileChoice, ANameWithoutAnEndingGetsThatOfTheFilter) {
  const TempFolder temporary;
  const std::string folder = std::filesystem::canonical(temporary / "").string() + "/";
  EXPECT_EQ(Chosen(folder, "graph", 0), folder + "graph.svg");
  EXPECT_EQ(Chosen(folder, "graph", 1), folder + "graph.pdf");
  EXPECT_EQ(Chosen(folder, "graph.svg", 1), folder + "graph.svg") << "what was typed counts";
  EXPECT_EQ(Chosen(folder, "graph", 2), folder + "graph.pdf") << "the last one that has an ending";
}

}  // namespace
}  // namespace korva::desktop
