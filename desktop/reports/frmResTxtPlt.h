// The results window: the output pages of the last run, one at a time.
#pragma once

#include <QDialog>
#include <QPointer>

#include "desktop/support/Session.h"

class QLabel;
class QLayout;
class QPlainTextEdit;
class QPushButton;

namespace korva::desktop {

class frmResTxtPlt final : public QDialog {
  Q_OBJECT

 public:
  // Opens on page 1, with the run's warnings in front. When it closes, `returnTo` is shown and enabled again.
  // Deletes itself when it is closed.
  frmResTxtPlt(Session& session, QWidget* returnTo);

  void reject() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLayout* NewHead();
  void Build();
  void Loadbuffer();
  void EnablePaging(QPushButton& button, bool enabled);
  void NextPage();
  void PreviousPage();
  void CopyPage();
  void CopyAll();
  void Print(const char* logged, int first, int last);
  void SavePdf();
  void ViewPlan();
  void showPopWarnings();

  Session& session_;
  QPointer<QWidget> returnTo_;
  int page_ = 0;
  bool warned_ = false;
  QPlainTextEdit* text_ = nullptr;
  QLabel* pageLabel_ = nullptr;
  QLabel* emptyLabel_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* previous_ = nullptr;
};

}  // namespace korva::desktop
