// The progress window of a laminated sweep.
#pragma once

#include <QDialog>

class QLabel;

namespace korva::desktop {

class frmStrondCalc final : public QDialog {
  Q_OBJECT

 public:
  explicit frmStrondCalc(QWidget* parent);

  void ShowStep(int step, int capacity);

  // Also what Esc and the window's own button ask for.
  void reject() override;

 signals:
  void Cancelled();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QLabel* lblProg_ = nullptr;
};

}  // namespace korva::desktop
