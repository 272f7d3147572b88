// The controls of the parameters form, built and laid out by the rows of their table. What they do is the
// form's part.
#pragma once

#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <array>
#include <span>
#include <vector>

#include "core/IndexedArray.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/FormTabs.h"
#include "desktop/support/FormTools.h"
#include "input/ParameterTable.h"

namespace korva::desktop {

class PlanView;

struct frmKORVAParmControls {
  frmKORVAParmControls(QWidget& form, UnitSystem units);

  // By the record's member.
  FieldBox& Box(NumberIndex field) const { return *boxes[field.At]; }
  QLabel& Label(NumberIndex field) const { return *labels[field.At]; }
  QCheckBox& Check(FlagIndex field) const { return *checks[field.At]; }

  FormTabs* SSTab1 = nullptr;
  std::array<FieldBox*, kNumberFields.size()> boxes{};  // by the rows of their tables
  std::array<QLabel*, kNumberFields.size()> labels{};
  std::array<QCheckBox*, kFlagFields.size()> checks{};
  IndexedArray<FieldBox*, 1, kMaxRows> txtXcutCenters;
  IndexedArray<QLabel*, 1, kMaxRows> Label23;
  IndexedArray<FieldBox*, 1, kMaxEntries> Text15;
  IndexedArray<QFrame*, 1, kMaxEntries> Line1;

  QComboBox* Combo1 = nullptr;
  FieldBox* txtNumberEntries = nullptr;
  FieldBox* Text10 = nullptr;
  QCheckBox* chkEqual = nullptr;
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
  QGroupBox* NewFrame(const char* name, const char* title);
  FieldBox* NewBox(const NumberField& field, const QString& name, const QString& caption);
  void AddBox(QGridLayout& grid, std::size_t field, int line, int column);
  QCheckBox* NewCheck(std::size_t field);
  QGroupBox* FieldsFrame(ParameterFrame which);
  QGroupBox* GeometryFrame();
  QGroupBox* RatioFrame();
  QGroupBox* EntriesFrame();
  void AddEntry(QGridLayout& grid, int number);
  void AddCenter(QGridLayout& grid, int number);
  QGroupBox* BleederFrame();
  QGroupBox* OptionFrame(const char* name, const char* title, const char* array,
                         std::span<const char* const> captions, std::span<QRadioButton*> options);
  QWidget* StandardTab();
  QWidget* DefaultsTab();
  QWidget* RetreatTab();
  void AddButtons(QBoxLayout& layout);

  QWidget& form_;
  UnitSystem units_;
  std::vector<QWidget*> order_;  // of the tab key: as the controls are made, which is as a person reads
};

}  // namespace korva::desktop
