// What a form is tested on: the program's state, scripted ports, and a main window that only counts.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <QWidget>
#include <stdexcept>

#include "desktop/services/PicturePrinter.h"
#include "desktop/support/Session.h"
#include "support/ScriptedPorts.h"

namespace korva::desktop {

class CountingMain final : public MainWindow {
 public:
  void Refresh() override { ++Refreshed; }
  void ApplyDisplaySettings() override { ++Applied; }
  void ApplyHistoryFont() override { ++FontApplied; }
  void EditParameters() override { ++ParametersOpened; }
  void ShowResults(QWidget* returnTo) override { ResultsReturnTo = returnTo; }
  void KeepWork() override {}
  void KeepDroppedWork() override { ++Kept; }
  void ShowHelp(const std::vector<std::string>& labels) override { HelpLabels = labels; }
  void QuitNow() override { ++Ended; }
  void SetInputEnabled(bool enabled) override { Enabled = enabled; }

  int Refreshed = 0;
  int Applied = 0;
  int FontApplied = 0;
  int ParametersOpened = 0;
  int Kept = 0;
  int Ended = 0;
  QWidget* ResultsReturnTo = nullptr;
  std::vector<std::string> HelpLabels;
  bool Enabled = true;
};

// Paints pictures on a sheet of pixels.
class KeptPictures final : public PicturePrinter {
 public:
  bool PrintPicture(const QString& title, const Paint& paint) override {
    if (Cancels) {
      return false;
    }
    Title = title;
    Sheet.fill(Qt::white);
    paint(Sheet, Sheet.rect());
    return true;
  }

  bool Cancels = false;
  QString Title;
  QImage Sheet{600, 400, QImage::Format_RGB32};
};

// Keeps the history, so that tests can read it.
struct FormBench {
  FormBench() { State.Preferences.DisplayHistoryWin = true; }

  Korva State;
  ScriptedPorts Ports;
  CountingMain Main;
  KeptPictures Pictures;
  Session Forms{State, Ports.All, Main, Pictures};

  const std::string& History() const { return State.SessionHistory.Text; }
};

// The box around all that is darker than grey.
inline QRect Ink(const QImage& image) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) < 0x80) {
        ink |= QRect(x, y, 1, 1);
      }
    }
  }
  return ink;
}

// The control of that name; a test that names one that is not there ends.
template <class Control>
Control& The(const QWidget& form, const char* name) {
  auto* control = form.findChild<Control*>(QLatin1String(name));
  if (control == nullptr) {
    throw std::runtime_error(std::string("no control ") + name);
  }
  return *control;
}

inline void Click(const QWidget& form, const char* name) {
  QTest::mouseClick(&The<QWidget>(form, name), Qt::LeftButton);
}

// Waits until `what` holds, and fails if it never does. The toolkit's own macros report to nobody here.
#define ASSERT_SOON(what) ASSERT_TRUE(QTest::qWaitFor([&] { return (what); }, 30'000)) << #what

}  // namespace korva::desktop
