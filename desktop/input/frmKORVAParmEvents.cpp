// What the parameters form does while a person works in it: dependent fields, enabled states, warnings.
#include <QApplication>
#include <QPointer>
#include <algorithm>

#include "core/NumberText.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/services/Capture.h"
#include "input/FieldNumber.h"
#include "input/FormComputations.h"
#include "input/ParameterWarnings.h"
#include "plan/PanelPicture.h"

namespace korva::desktop {

namespace {

constexpr int kFirstHelpContext = 2201;
constexpr int kSecondCenter = 2;

}  // namespace

void frmKORVAParm::Wire() {
  WireBoxes();
  WireChecks();
  WireConditions();
  connect(ui_.SSTab1, &QTabWidget::currentChanged, this,
          [this](int tab) { ui_.SSTab1->setProperty("HelpContextID", kFirstHelpContext + tab); });
  connect(&timer_, &QTimer::timeout, this, [this] {
    warningShown_ = false;
    timer_.stop();
  });
  connect(ui_.cmdOK, &QPushButton::clicked, this, &frmKORVAParm::AcceptAndClose);
  connect(ui_.cmdCancel, &QPushButton::clicked, this, &QWidget::close);
  connect(ui_.cmdResults, &QPushButton::clicked, this, [this] { Run([this] { Results(); }); });
  connect(ui_.cmdView, &QPushButton::clicked, this, [this] { Run([this] { View(); }); });
  connect(ui_.cmdCopyClip, &QPushButton::clicked, this, [this] { CopyDialogToClipboard(session_, *this); });
  connect(ui_.cmdHelp, &QPushButton::clicked, this, [this] { ShowHelpHint(session_); });
}

void frmKORVAParm::WireBoxes() {
  const auto changed = [this](const FieldBox& box, auto rule) {
    connect(&box, &QLineEdit::textChanged, this, [this, rule] {
      if (!loading_) {
        rule();
      }
    });
  };
  changed(ui_.Box(&Project::DepthCover), [this] {
    UpdateAMZ();
    UpdateArch();
  });
  for (const NumberIndex box : {NumberIndex(&Project::XcutAngle), NumberIndex(&Project::EntryWidth),
                                NumberIndex(&Project::XcutSpacing)}) {
    changed(ui_.Box(box), [this] {
      UpdateRatio();
      UpdateArch();
    });
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    changed(*ui_.txtXcutCenters[i], [this, i] { CenterChanged(i); });
  }
  connect(&ui_.Box(&Project::BarrierFirstGob), &QLineEdit::textChanged, this,
          [this] { UpdateRowState(&Project::BarrierFirstGob, &Project::RowC); });
  connect(&ui_.Box(&Project::BarrierSecondGob), &QLineEdit::textChanged, this,
          [this] { UpdateRowState(&Project::BarrierSecondGob, &Project::RowD); });
}

void frmKORVAParm::WireChecks() {
  const auto toggled = [this](const QCheckBox& check, auto rule) {
    connect(&check, &QCheckBox::toggled, this, rule);
  };
  connect(ui_.Combo1, &QComboBox::currentIndexChanged, this, &frmKORVAParm::EntriesChosen);
  toggled(*ui_.chkEqual, [this] { ApplyEqual(); });
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    toggled(*ui_.checks[i], [this, i] { FlagClicked(i); });
  }
  toggled(ui_.Check(&Project::AMZAuto), [this] { UpdateAMZ(); });
  toggled(ui_.Check(&Project::ArchAuto), [this] { UpdateArch(); });
}

void frmKORVAParm::WireConditions() {
  for (QRadioButton* option : ui_.optAnal) {
    connect(option, &QRadioButton::toggled, this, [this](bool chosen) {
      if (chosen) {
        ShowConditionFields();
      }
    });
    // A click on the condition that is chosen already counts, too.
    connect(option, &QRadioButton::pressed, this, [this, option] { chosenAgain_ = option->isChecked(); });
    connect(option, &QRadioButton::clicked, this, [this] {
      if (chosenAgain_) {
        ShowConditionFields();
      }
    });
  }
}

void frmKORVAParm::WirePreview() {
  previewTimer_.setSingleShot(true);
  previewTimer_.setInterval(0);
  connect(&previewTimer_, &QTimer::timeout, this, &frmKORVAParm::ShowPreview);
  const auto later = [this] { previewTimer_.start(); };
  for (const FieldBox* box : findChildren<FieldBox*>()) {
    connect(box, &QLineEdit::textChanged, this, later);
  }
  for (const QAbstractButton* button : findChildren<QAbstractButton*>()) {
    connect(button, &QAbstractButton::toggled, this, later);
  }
}

void frmKORVAParm::WireWarnings() {
  const UnitSystem units = session_.State.Stored.ProjectUnits;
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    if (const DataBaseValue* usual = kNumberFields[i].DataBase) {
      const FieldBox& box = *ui_.boxes[i];
      connect(&box, &FieldBox::FocusLeft, this,
              [this, &box, units, usual] { WarnOnLeaving(WarningOn(box.Text(), *usual, units)); });
    }
  }
}

Project frmKORVAParm::Entered() const {
  Project entered;
  StoreParameters(Texts(), entered);
  return entered;
}

void frmKORVAParm::UpdateArch() {
  if (ui_.Check(&Project::ArchAuto).isChecked()) {
    Run([this] {
      const float factor = Calc_Arch(Entered(), session_.State.Stored.ProjectUnits);
      ui_.Box(&Project::ArchFactor).Fill(GeneralText(factor));
    });
  }
}

void frmKORVAParm::UpdateAMZ() {
  if (ui_.Check(&Project::AMZAuto).isChecked()) {
    Run([this] {
      const auto breadth =
          Calc_AMZ(FieldNumber(ui_.Box(&Project::DepthCover).Text()), session_.State.Stored.ProjectUnits);
      ui_.Box(&Project::BreadthAMZ).Fill(std::to_string(breadth));
    });
  }
}

void frmKORVAParm::UpdateRatio() {
  Run([this] { ui_.Text10->Fill(Calc_Ext_Ratio(Entered())); });
}

void frmKORVAParm::CenterChanged(int index) {
  UpdateRatio();
  if (index == 1 && ui_.chkEqual->isChecked()) {
    ApplyEqual();
  }
  UpdateArch();
}

void frmKORVAParm::ApplyEqual() {
  const bool equal = ui_.chkEqual->isChecked();
  for (int i = 2; i < EntriesOf(Texts()); ++i) {
    FieldBox& box = *ui_.txtXcutCenters[i];
    if (equal) {
      box.Fill(ui_.txtXcutCenters[1]->Text());
    }
    box.setEnabled(!equal);
  }
}

void frmKORVAParm::EntriesChosen() {
  if (ui_.Combo1->currentIndex() < 0) {
    return;
  }
  ui_.txtNumberEntries->setText(ui_.Combo1->currentText());
  ShowEntryFields(EntriesOf(Texts()));
  ApplyEqual();
  if (!loading_) {
    UpdateRatio();
    UpdateArch();
  }
}

void frmKORVAParm::ShowEntryFields(int entries) {
  for (int i = 1; i <= kMaxEntries; ++i) {
    ui_.Text15[i]->setVisible(i <= entries);
    ui_.Line1[i]->setVisible(i <= entries);
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    ui_.txtXcutCenters[i]->setVisible(i < entries);
    ui_.Label23[i]->setVisible(i < entries);
  }
  const std::string first = ui_.txtXcutCenters[1]->Text();
  for (int i = kSecondCenter; i < std::min(entries, kMaxEntries) && FieldNumber(first) != 0; ++i) {
    FieldBox& box = *ui_.txtXcutCenters[i];
    if (FieldNumber(box.Text()) == 0) {
      box.Fill(first);
    }
  }
}

void frmKORVAParm::FlagClicked(std::size_t field) {
  const FlagField& row = kFlagFields[field];
  QCheckBox& check = *ui_.checks[field];
  FieldBox& box = *ui_.boxes[IndexOf(row.Number)];
  switch (row.Role) {
    case FlagRole::kComputes:
      if (!loading_ && !check.isChecked()) {
        ShowWarning(FormWarning(row.Warning));
      }
      box.setEnabled(!check.isChecked());
      return;
    case FlagRole::kExcludes:
      if (check.isChecked() && FieldNumber(box.Text()) > 0) {
        ShowWarning(std::string(row.Warning));
        check.setChecked(false);
      }
      ShowPanelPicture();
      return;
    case FlagRole::kShows:
      ShowRowWidth(field);
  }
}

void frmKORVAParm::ShowRowWidth(std::size_t field) {
  const QCheckBox& check = *ui_.checks[field];
  const std::size_t width = IndexOf(kFlagFields[field].Number);
  const bool left = check.isChecked() && !check.isHidden();
  ui_.labels[width]->setVisible(left);
  ui_.boxes[width]->setVisible(left);
  ShowPanelPicture();
}

void frmKORVAParm::UpdateRowState(NumberIndex barrier, FlagIndex check) {
  const bool there = FieldNumber(ui_.Box(barrier).Text()) != 0;
  if (!there) {
    ui_.Check(check).setChecked(false);
  }
  ui_.Check(check).setEnabled(there);
}

void frmKORVAParm::ShowConditionFields() {
  const PanelLoading loading = Condition();
  const bool first = HasFirstSideGob(loading);
  const bool second = HasSecondSideGob(loading);
  if (second && !loading_) {
    ShowWarning(FormWarning(kTwoSideGobsWarning));
  }
  ui_.fraActive->setVisible(HasActiveGob(loading));
  ui_.fraBleeder->setVisible(HasActiveGob(loading));
  ui_.fraFirst->setVisible(first);
  ui_.fraSecond->setVisible(second);
  ui_.Check(&Project::RowC).setVisible(first);
  ui_.Check(&Project::RowD).setVisible(second);
  ShowRowWidth(FlagIndex(&Project::RowC).At);
  ShowRowWidth(FlagIndex(&Project::RowD).At);
}

void frmKORVAParm::ShowPanelPicture() {
  const ParameterTexts texts = Texts();
  ui_.pictures->setCurrentIndex(
      PanelPictureIndex({texts.LoadingCondition, texts[&Project::RowA], texts[&Project::RowB],
                         texts[&Project::RowC], texts[&Project::RowD]}));
}

void frmKORVAParm::WarnOnLeaving(const std::optional<std::string>& warning) {
  if (!warning || !isVisible()) {
    return;
  }
  const bool byMouse = QApplication::mouseButtons() != Qt::NoButton;
  const QPointer<QAbstractButton> pressed =
      byMouse ? qobject_cast<QAbstractButton*>(QApplication::focusWidget()) : nullptr;
  ShowWarning(*warning);
  warningShown_ = true;
  timer_.start();
  if (pressed != nullptr) {
    QTimer::singleShot(0, this, [this, pressed] { CompleteClick(pressed); });
  }
}

// A button that was pressed while the box of a warning came up never hears of its release: its click is done
// now. OK then holds itself back, so that the person may look at the field again.
void frmKORVAParm::CompleteClick(QAbstractButton* pressed) {
  if (pressed != nullptr && pressed->isDown() && QApplication::mouseButtons() == Qt::NoButton) {
    pressed->setDown(false);
    pressed->click();
  }
}

}  // namespace korva::desktop
