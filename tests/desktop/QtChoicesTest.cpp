#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "desktop/FormBench.h"
#include "desktop/services/QtPorts.h"
#include "desktop/services/QtValues.h"
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
  const std::string folder = Utf8Of(canonical(temporary.Path())) + "/";
  EXPECT_EQ(Chosen(folder, "graph", 0), folder + "graph.svg");
  EXPECT_EQ(Chosen(folder, "graph", 1), folder + "graph.pdf");
  EXPECT_EQ(Chosen(folder, "graph.svg", 1), folder + "graph.svg") << "what was typed counts";
  EXPECT_EQ(Chosen(folder, "graph", 2), folder + "graph.pdf") << "the last one that has an ending";
}

// What is chosen while `answer` has the open dialog of that class.
template <class Dialog>
void Answer(const std::function<void(Dialog&)>& answer) {
  QTimer::singleShot(0, qApp, [answer] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    answer(*dialog);
  });
}

TEST(QtValues, DialogsGiveWhatWasChosenOrNothing) {
  QtValues values;
  Answer<QFontDialog>([](QFontDialog& dialog) {
    EXPECT_EQ(dialog.currentFont().pointSize(), 12);
    dialog.setCurrentFont(QFont(QStringLiteral("Liberation Mono"), 72, QFont::Bold));
    dialog.accept();
  });
  const auto font = values.ChooseFont({"Liberation Sans", 12, 0, 0});
  ASSERT_TRUE(font);
  EXPECT_EQ(font->Name, "Liberation Mono");
  EXPECT_EQ(font->Size, 24) << "the largest that the settings take";
  EXPECT_EQ(font->Bold, -1);
  Answer<QFontDialog>([](QFontDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(values.ChooseFont({"Liberation Sans", 12, 0, 0}));

  Answer<QInputDialog>([](QInputDialog& dialog) {
    EXPECT_EQ(dialog.labelText(), QLatin1String("Axis title"));
    dialog.setTextValue(dialog.textValue() + QStringLiteral(" \u00b0"));
    dialog.accept();
  });
  EXPECT_EQ(values.EnterText({"Graph", "Axis title", "Angle"}), "Angle \u00b0");
  Answer<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(values.EnterText({"Graph", "Axis title", "Angle"}));
}

TEST(QtClipboard, TakesThePixelsOfAPicture) {
  QImage picture(3, 2, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QBuffer png;
  picture.save(&png, "PNG");
  QtClipboard().SetPicture(png.data().toStdString());
  EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(picture.format()), picture);
}

}  // namespace
}  // namespace korva::desktop
