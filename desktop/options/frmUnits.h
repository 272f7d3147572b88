// The unit calculator "Unit Conversions".
#pragma once

#include <QDialog>
#include <vector>

#include "desktop/support/Session.h"
#include "input/UnitTables.h"

class QGroupBox;
class QLineEdit;
class QRadioButton;
class QTabWidget;

namespace korva::desktop {

class FieldBox;

class frmUnits final : public QDialog {
 public:
  explicit frmUnits(Session& session, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  // The controls of a tab.
  struct Page {
    FieldBox* Input = nullptr;
    std::vector<QRadioButton*> Sources;
    std::vector<QLineEdit*> Results;
  };

  QWidget* NewPage(const UnitTab& tab);
  void Convert(std::size_t tab);
  void Copy();

  Session& session_;
  QTabWidget* SSTab1_ = nullptr;
  std::vector<Page> pages_;
};

}  // namespace korva::desktop
