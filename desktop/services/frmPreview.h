// The print preview: output page 0 as text and as the sheets that would be printed.
#pragma once

#include <QDialog>

#include "desktop/support/Session.h"

namespace korva::desktop {

class frmPreview final : public QDialog {
  Q_OBJECT

 public:
  // Shows page 0 as it stands now.
  explicit frmPreview(Session& session, QWidget* parent = nullptr);

 private:
  void Build();
  QWidget* NewPages();
  void CopyText();
  void PrintPage();
  void SavePdf();

  Session& session_;
};

}  // namespace korva::desktop
