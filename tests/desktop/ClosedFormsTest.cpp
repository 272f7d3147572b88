// Forms that are closed while one of their own commands is going on.
#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include "desktop/FormBench.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/services/QtPorts.h"
#include "support/Panels.h"

namespace korva::desktop {
namespace {

// Runs what is to happen as the event loop of the program does, and what it sets off.
template <class Command>
void RunInLoop(Command&& command) {
  QEventLoop loop;
  QTimer::singleShot(0, &loop, [&] {
    command();
    loop.quit();
  });
  loop.exec();
}

// A click on the box and one on the form may wait together while the program is busy.
TEST(ClosedForms, AFormThatIsClosedWithItsBoxStaysUntilItsCommandHasEnded) {
  QPointer<QWidget> form = new QWidget;
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form));
  bool there = false;
  RunInLoop([&] {
    QTimer::singleShot(0, form, [&form] {
      qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->accept();
      form->close();
    });
    QtMessages().Show({.text = "A warning"});
    there = !form.isNull();
  });
  EXPECT_TRUE(there);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(form.isNull());
}

// As a second click did that was let in.
TEST(ClosedForms, OKOfParametersThatGoMeanwhileDoesNothing) {
  FormBench bench;
  bench.State.Stored = test::Stored(test::DevelopmentPanel());
  bench.State.ProjectEmpty = false;
  bench.State.Preferences.Options.IssueWarningCancel = false;
  const Project before = bench.State.Stored.ProjectInput;
  const QPointer<frmKORVAParm> form = new frmKORVAParm(bench.Forms);
  form->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form));
  The<QLineEdit>(*form, "txtDepthCover").setText(QStringLiteral("450"));
  RunInLoop([&] {
    QTimer::singleShot(0, form, [&form] { delete form.data(); });
    The<QPushButton>(*form, "cmdOK").click();
  });
  EXPECT_TRUE(form.isNull());
  EXPECT_EQ(bench.State.Stored.ProjectInput, before);
}

}  // namespace
}  // namespace korva::desktop
