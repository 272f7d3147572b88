// The controls of the parameters form, built and laid out. What they do is the form's part.
#pragma once

#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <array>
#include <map>
#include <string>
#include <vector>

#include "core/Project.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/FormTabs.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

class PlanView;

// "txtXcutCenters(3)" for 3.
std::string CenterName(int index);

struct frmKORVAParmControls {
  frmKORVAParmControls(QWidget& form, UnitSystem units);

  FieldBox& Box(const std::string& name) const { return *boxes.at(name); }
  QCheckBox& Check(const std::string& name) const { return *checks.at(name); }

  FormTabs* SSTab1 = nullptr;
  std::map<std::string, FieldBox*> boxes;    // every value box by its name
  std::map<std::string, QCheckBox*> checks;  // and every check box
  std::map<std::string, QLabel*> labels;     // those that are shown and hidden

  QComboBox* Combo1 = nullptr;
  FieldBox* Text10 = nullptr;
  std::array<FieldBox*, kMaxEntries> Text15{};
  std::array<QFrame*, kMaxEntries> Line1{};
  std::array<QLabel*, kMaxRows> Label23{};
  std::array<QRadioButton*, 3> optLam{};
  std::array<QRadioButton*, 4> optAnal{};
  QGroupBox* fraActive = nullptr;
  QGroupBox* fraFirst = nullptr;
  QGroupBox* fraSecond = nullptr;
  QGroupBox* fraBleeder = nullptr;
  PlanView* Picture1 = nullptr;
  QStackedWidget* pictures = nullptr;  // Picture2(0) to Picture2(28)

  QPushButton* cmdResults = nullptr;
  QPushButton* cmdCopyClip = nullptr;
  QPushButton* cmdView = nullptr;
  QPushButton* cmdCancel = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdHelp = nullptr;

 private:
  struct Row;
  FieldBox* NewBox(const Row& row, const QString& caption);
  void AddRow(QGridLayout& grid, const Row& row);
  QGroupBox* NewFrame(const char* name, const char* title);
  QGroupBox* NewValueFrame(const char* name, const char* title, const std::vector<Row>& rows);
  QWidget* StandardTab();
  QWidget* DefaultsTab();
  QWidget* RetreatTab();
  QGroupBox* GeometryFrame();
  QGroupBox* RatioFrame();
  QGroupBox* EntriesFrame();
  QGroupBox* BleederFrame();
  template <std::size_t Count>
  QGroupBox* OptionFrame(const char* name, const char* title, const char* array,
                         const std::array<const char*, Count>& captions,
                         std::array<QRadioButton*, Count>& options);
  void AddButtons(QBoxLayout& layout);
  void SetTabOrder() const;

  QWidget& form_;
  UnitSystem units_;
};

}  // namespace korva::desktop
