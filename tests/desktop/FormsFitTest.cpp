// What has to hold of the size and the place of every window.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>

#include "desktop/AllForms.h"
#include "desktop/support/Icons.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

// 1920 x 1080 at 200 percent, the least of the screens that every window fits, without a panel of the desktop
// and the window's own frame.
constexpr QSize kLeastRoom(950, 470);

TEST(FormsFit, EveryWindowCanBeAsSmallAsAScreenAndAsLargeAsAPersonLikes) {
  InitResources();
  FormBench bench;
  const TempFolder folder;
  bench.State.Places.ProductFolder = bench.State.Preferences.DataPath = folder / "";
  bench.State.Places.Docs = KORVA_BUILT_DOCS "/";
  const AllForms forms(bench);
  for (const auto& form : forms.List()) {
    form->ensurePolished();
    const QSize least = form->minimumSizeHint().expandedTo(form->minimumSize());
    EXPECT_EQ(least.boundedTo(kLeastRoom), least)
        << qPrintable(form->objectName()) << " " << least.width() << " x " << least.height();
    EXPECT_EQ(form->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)) << qPrintable(form->objectName());
  }
}

TEST(FormsFit, ALongFileNameWidensNoWindow) {
  FormBench bench;
  bench.State.Stored = test::Stored(test::DevelopmentPanel());
  bench.State.ProjectFileName = "/mine/" + std::string(240, 'n') + ".KVL";
  const frmConvert convert(bench.Forms);
  EXPECT_EQ(convert.minimumSizeHint().boundedTo(kLeastRoom), convert.minimumSizeHint());
}

TEST(FormsFit, AWindowOpensOnTheScreenOfTheOneThatItCameFrom) {
  ASSERT_EQ(QGuiApplication::screens().size(), 2);
  const QScreen* second = QGuiApplication::screens().at(1);
  QWidget opener;
  opener.setGeometry(QRect(second->geometry().topLeft() + QPoint(50, 50), QSize(300, 200)));
  opener.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&opener));
  ASSERT_EQ(opener.screen(), second);
  FormBench bench;
  bench.State.Stored = test::Stored(test::DevelopmentPanel());
  const frmKORVAParm form(bench.Forms);  // has no parent
  EXPECT_TRUE(second->geometry().contains(form.frameGeometry().center()));
  const frmPopUp child("warnings", &opener);
  EXPECT_TRUE(second->geometry().contains(child.frameGeometry().center()));
}

TEST(FormsFit, AWindowLeavesRoomForItsFrame) {
  class Wanting final : public QWidget {
   public:
    QSize sizeHint() const override { return {5000, 5000}; }
  };
  Wanting window;
  CenterForm(window);
  const QRect room = window.screen()->availableGeometry();
  EXPECT_LT(window.height(), room.height() - window.fontMetrics().height());
  EXPECT_GE(window.pos().y(), room.top());
  QWidget opener;
  opener.showMaximized();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&opener));
  CenterForm(window, &opener);
  const int border = window.fontMetrics().height() / 2;
  EXPECT_LE(window.width(), room.width() - 2 * border) << "which a maximised window may not have";
  EXPECT_LE(window.height(), room.height() - border);
}

}  // namespace
}  // namespace korva::desktop
