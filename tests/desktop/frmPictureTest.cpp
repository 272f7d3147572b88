// The plan window, and the plan in the windows that open it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QWheelEvent>
#include <memory>

#include "commands/Calculate.h"
#include "commands/PlanCommands.h"
#include "desktop/FormBench.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/plan/PlanView.h"
#include "desktop/plan/frmPicture.h"
#include "desktop/reports/frmResTxtPlt.h"
#include "support/Panels.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

class PlanWindow : public testing::Test {
 protected:
  PlanWindow() {
    bench_.State.Stored = test::Stored(test::TwoSideGobs());
    bench_.State.ProjectEmpty = false;
    CalculateStabilityFactors(bench_.State, bench_.Ports.Messages);
  }
  ~PlanWindow() override {
    ClosePlans();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  frmPicture& OpenFor(PlanOpener caller) {
    window_ = frmPicture::Open(bench_.Forms, opener_, caller);
    return *window_;
  }

  QAction& Item(const char* name) { return The<QAction>(*window_, name); }
  PlanView& View() { return The<PlanView>(*window_, "picPlan"); }

  static frmPicture* OpenPlan() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* plan = qobject_cast<frmPicture*>(window); plan != nullptr && plan->isVisible()) {
        return plan;
      }
    }
    return nullptr;
  }
  static void ClosePlans() {
    while (frmPicture* plan = OpenPlan()) {
      plan->close();
    }
  }

  FormBench bench_;
  QWidget opener_;
  QPointer<frmPicture> window_;
};

TEST_F(PlanWindow, FromTheFormShowsDimensionsAlone) {
  OpenFor(kPlanFromForm);
  for (const char* item : {"mnuPlotSetItem(0)", "mnuPlotSetItem(1)", "mnuPlotSetItem(2)"}) {
    EXPECT_FALSE(Item(item).isEnabled());
  }
  EXPECT_FALSE(View().Request().Values.has_value());
  EXPECT_EQ(window_->windowTitle(), "View Plan");
}

TEST_F(PlanWindow, SettingsChooseWhatThePillarsShow) {
  OpenFor(kPlanFromResults);
  EXPECT_TRUE(Item("mnuPlotSetItem(0)").isChecked());
  EXPECT_EQ(View().Request().Title.Model, "traditional");
  Item("mnuPlotSetItem(2)").trigger();
  EXPECT_TRUE(Item("mnuPlotSetItem(2)").isChecked());
  EXPECT_FALSE(Item("mnuPlotSetItem(0)").isChecked());
  EXPECT_EQ(View().Request().PlotType, kPlotCapacity);
  Item("mnuPlotSetItem(1)").trigger();
  EXPECT_EQ(View().Request().PlotType, kPlotStrength);
}

TEST_F(PlanWindow, TheLaminatedModelOffersNoCapacity) {
  bench_.State.ProjectCalc.CalcMode = kLaminatedModel;
  OpenFor(kPlanFromResults);
  EXPECT_FALSE(Item("mnuPlotSetItem(2)").isVisible());
  EXPECT_TRUE(Item("mnuPlotSetItem(1)").isVisible());
}

TEST_F(PlanWindow, FontStepsChangeTheLayout) {
  OpenFor(kPlanFromForm);
  const double before = View().Request().TextShare;
  const int size = QFontInfo(View().TextFont()).pointSize();
  Item("mnuEditItem(1)").trigger();
  EXPECT_GT(QFontInfo(View().TextFont()).pointSize(), size);
  EXPECT_GT(View().Request().TextShare, before);
  for (int i = 0; i < 60; ++i) {
    Item("mnuEditItem(2)").trigger();
  }
  EXPECT_GE(QFontInfo(View().TextFont()).pointSize(), 4);
  EXPECT_LT(View().Request().TextShare, before);
}

TEST_F(PlanWindow, MaximisingEndsInOneSizeWhateverTheWindowManagerRestores) {
  OpenFor(kPlanFromForm);
  const QRect room = window_->screen()->availableGeometry();
  const int tall = static_cast<int>(room.height() * 0.9);
  ASSERT_SOON(View().width() == View().height());
  for (const QSize restored : {QSize(420, 440), room.size(), QSize(300, 500)}) {
    window_->move(room.bottomRight() - QPoint(300, 300));  // from where it has to come back
    window_->showMaximized();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window_->isMaximized(); }));
    window_->resize(restored);
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return window_->frameGeometry().height() == tall && View().width() == View().height() &&
             room.contains(window_->frameGeometry());
    }));
  }
  // The size of a person is followed again, whichever side was pulled.
  window_->resize(420, window_->height());
  ASSERT_SOON(View().height() == 420);
  window_->resize(420, 500);
  ASSERT_SOON(window_->height() == 500);
  ASSERT_SOON(View().width() == View().height());
}

TEST_F(PlanWindow, CopiesPrintsAndSavesThePicture) {
  OpenFor(kPlanFromForm);
  Item("mnuEditItem(0)").trigger();
  EXPECT_EQ(QImage::fromData(QByteArrayView(bench_.Ports.Clipboard.Picture)).width(), View().width());
  EXPECT_FALSE(The<QLabel>(*window_, "picTMPCopy").isVisible());
  const TempFolder folder;
  bench_.Ports.Files.Expect(folder / "plan.svg");
  Item("mnuPlotFileItem(3)").trigger();
  EXPECT_EQ(TempFolder::Bytes(folder / "plan.svg").find("<?xml"), 0U);
  EXPECT_NE(bench_.History().find("Plan saved to file"), std::string::npos);

  Item("mnuPlotFileItem(0)").trigger();
  EXPECT_NE(bench_.History().find("Printing Plan"), std::string::npos);
  EXPECT_GT(Ink(bench_.Pictures.Sheet).height(), bench_.Pictures.Sheet.height() / 2)
      << "as large as the sheet allows";
}

TEST_F(PlanWindow, ZoomsAndGoesBackToTheWholePlan) {
  OpenFor(kPlanFromResults);
  View().ZoomBy(4, {10, 10});
  EXPECT_DOUBLE_EQ(View().Request().Zoom, 4);
  View().ZoomBy(100, {10, 10});
  EXPECT_DOUBLE_EQ(View().Zoom(), 20);
  QTest::mouseDClick(&View(), Qt::LeftButton);
  EXPECT_DOUBLE_EQ(View().Zoom(), 1);
}

TEST_F(PlanWindow, TheFrameStaysWhileThePanelIsEnlarged) {
  OpenFor(kPlanFromResults);
  EXPECT_TRUE(Item("mnuViewItem(0)").shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_Equal)));
  const auto above = [this](const QImage& image) {
    const Plan& plan = View().Shown();
    const double share = 1 - plan.PanelHigh / static_cast<double>(plan.PlanHeight);
    return image.copy(0, 0, image.width(), static_cast<int>(share * image.height()) - 3);
  };
  const QImage whole = View().grab().toImage();
  const auto sheet = [this] {
    Item("mnuPlotFileItem(0)").trigger();
    return bench_.Pictures.Sheet.copy();
  };
  const QImage wholeSheet = sheet();
  Item("mnuViewItem(0)").trigger();
  Item("mnuViewItem(0)").trigger();
  const QImage enlarged = View().grab().toImage();
  ASSERT_GT(above(whole).height(), 10);
  EXPECT_EQ(above(enlarged), above(whole)) << "the caption";
  EXPECT_NE(enlarged, whole);
  EXPECT_NE(sheet(), wholeSheet) << "prints what the window shows";
  Item("mnuViewItem(2)").trigger();
  EXPECT_EQ(View().grab().toImage(), whole);
}

TEST_F(PlanWindow, KeepsThePanelThatItWasOpenedFor) {
  OpenFor(kPlanFromResults);
  bench_.State.ProjectCalc = Project{};
  bench_.State.PillarValues.reset();
  Item("mnuPlotSetItem(1)").trigger();
  EXPECT_TRUE(View().Request().Values.has_value());
  EXPECT_EQ(View().Shown().Pillars.size(), 20U);
}

TEST_F(PlanWindow, OffersWhatTheRunComputed) {
  bench_.State.ProjectCalc.CalcMode = kComparedModels;  // of which the laminated model alone may have run
  const StrondResults laminated;
  bench_.State.PillarValues = PlanValuesOf(nullptr, &laminated, kEnglish, {});
  OpenFor(kPlanFromResults);
  EXPECT_TRUE(Item("mnuPlotSetItem(1)").isEnabled());
  EXPECT_FALSE(Item("mnuPlotSetItem(2)").isEnabled());
}

TEST_F(PlanWindow, ResultsOpenItAndShowTheirPageAgain) {
  auto* results = new frmResTxtPlt(bench_.Forms, nullptr);
  bench_.State.WarningText.clear();
  results->show();
  Click(*results, "Command9");
  EXPECT_TRUE(The<QAction>(*OpenPlan(), "mnuPlotSetItem(1)").isEnabled());
  EXPECT_FALSE(results->isEnabled());
  bench_.State.OutBuf[1] = "the page as it is now";
  results->close();
  EXPECT_TRUE(results->isVisible()) << "the plan stands in front of it";
  ClosePlans();
  EXPECT_TRUE(results->isEnabled());
  EXPECT_EQ(The<QPlainTextEdit>(*results, "RichTextBox1").toPlainText(), "the page as it is now");
  results->close();
}

TEST_F(PlanWindow, TheFormShowsThePanelAsItIsTyped) {
  auto* form = new frmKORVAParm(bench_.Forms);
  form->show();
  auto& preview = The<PlanView>(*form, "Picture1");
  const auto empty = [&preview] { return Ink(preview.grab().toImage()).isNull(); };
  ASSERT_FALSE(empty());
  EXPECT_TRUE(preview.Shown().Panel.Texts.empty()) << "outlines alone";
  The<QLineEdit>(*form, "txtXcutSpacing").setText(QStringLiteral("150"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return preview.Request().ProjectCalc.XcutSpacing == 150; }));
  The<QLineEdit>(*form, "txtXcutSpacing").setText(QStringLiteral("0"));
  EXPECT_TRUE(QTest::qWaitFor(empty));
  The<QLineEdit>(*form, "txtXcutSpacing").setText(QStringLiteral("120"));
  bench_.State.Preferences.Options.ViewChildWindow = false;
  Click(*form, "cmdView");
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(bench_.State.ProjectCalc.XcutSpacing, 120) << "the working copy is what is drawn";
  EXPECT_EQ(bench_.State.Stored.ProjectInput.XcutSpacing, 80);
  bench_.State.Preferences.Options.ViewChildWindow = true;
  Click(*form, "cmdView");
  EXPECT_FALSE(form->isVisible());
  ClosePlans();
  EXPECT_TRUE(form->isVisible());
  bench_.State.Preferences.Options.IssueWarningCancel = false;
  form->close();
}

}  // namespace
}  // namespace korva::desktop
