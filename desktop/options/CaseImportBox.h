// The part of the options dialog that imports rows of the cases' workbook.
#pragma once

#include <QWidget>

#include "desktop/support/Session.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace korva {
struct CaseImportState;
}

namespace korva::desktop {

class FieldBox;

class CaseImportBox final : public QWidget {
  Q_OBJECT

 public:
  CaseImportBox(Session& session, QWidget* parent);

  bool IsRunning() const { return running_; }
  // Ends the import after the current row.
  void Cancel() { cancelled_ = true; }

 signals:
  // While it runs, nothing else of the dialog may be used.
  void RunningChanged(bool running);

 private:
  void Build();
  void Import();
  bool MayContinue(const CaseImportState& state);
  void Show(const CaseImportState& state);
  void SetRunning(bool running);

  Session& session_;
  QPushButton* cmdImport_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QLabel* label4_ = nullptr;
  QLabel* reason_ = nullptr;
  FieldBox* text3_ = nullptr;
  bool running_ = false;
  bool cancelled_ = false;
};

}  // namespace korva::desktop
