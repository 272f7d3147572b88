// The window "View Plan".
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include "desktop/support/Session.h"
#include "plan/KORVAgraf.h"

class QLabel;

namespace korva::desktop {

class PlanView;

class frmPicture final : public QMainWindow {
  Q_OBJECT

 public:
  // Opens the plan of the working copy for `opener`, which is `caller`. Without a window, after a message,
  // for a panel without extent; run-time errors of the drawing come through. The opener is enabled and shown
  // again when the plan closes; the plan deletes itself then.
  static frmPicture* Open(Session& session, QWidget& opener, PlanOpener caller);

 signals:
  void Closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  frmPicture(Session& session, QWidget& opener, PlanOpener caller);

  void BuildMenus();
  void ChoosePlot(PillarPlot plot);
  void StepFont(int direction);
  void Copy();
  void Print();
  void SavePlan();
  void PlaceFirst();
  void SquareUp();
  int Frame() const;
  void UndoMaximise();

  Session& session_;
  QPointer<QWidget> opener_;
  PlanRequest request_;  // as it was when the window opened
  PlanView* view_ = nullptr;
  QLabel* picTMPCopy_ = nullptr;
  QSize squared_;     // the size last made square
  QTimer settle_;     // waits for the window manager after maximising
  int attempts_ = 0;  // that are left at the size after it
};

}  // namespace korva::desktop
