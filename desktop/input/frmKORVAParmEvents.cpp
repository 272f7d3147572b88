// What the parameters form does while a person works in it: dependent fields, enabled states, warnings.
#include <QApplication>
#include <QPointer>
#include <algorithm>

#include "core/NumberText.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/services/Capture.h"
#include "input/FieldNumber.h"
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
  connect(ui_.cmdOK, &QPushButton::clicked, this, &frmKORVAParm::TakeAndClose);
  connect(ui_.cmdCancel, &QPushButton::clicked, this, &QWidget::close);
  connect(ui_.cmdResults, &QPushButton::clicked, this, [this] { Run([this] { Results(); }); });
  connect(ui_.cmdView, &QPushButton::clicked, this, [this] { Run([this] { View(); }); });
  connect(ui_.cmdCopyClip, &QPushButton::clicked, this, [this] { CopyDialogToClipboard(session_, *this); });
  connect(ui_.cmdHelp, &QPushButton::clicked, this, [this] { ShowHelpHint(session_); });
}

void frmKORVAParm::WireBoxes() {
  const auto changed = [this](const char* box, auto rule) {
    connect(&ui_.Box(box), &QLineEdit::textChanged, this, [this, rule] {
      if (!loading_) {
        rule();
      }
    });
  };
  changed("txtDepthCover", [this] {
    UpdateAMZ();
    UpdateArch();
  });
  for (const char* box : {"txtXcutAngle", "txtEntryWidth", "txtXcutSpacing"}) {
    changed(box, [this] {
      UpdateRatio();
      UpdateArch();
    });
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    changed(CenterName(i).c_str(), [this, i] { CenterChanged(i); });
  }
  for (const auto& [barrier, check] :
       {std::pair{"txtBarrierFirstGob", "chkRowC"}, {"txtBarrierSecondGob", "chkRowD"}}) {
    connect(&ui_.Box(barrier), &QLineEdit::textChanged, this,
            [this, barrier = barrier, check = check] { UpdateRowState(barrier, check); });
  }
}

void frmKORVAParm::WireChecks() {
  connect(ui_.Combo1, &QComboBox::currentIndexChanged, this, &frmKORVAParm::EntriesChosen);
  connect(&ui_.Check("chkEqual"), &QCheckBox::toggled, this, &frmKORVAParm::ApplyEqual);
  connect(&ui_.Check("chkAMZ"), &QCheckBox::toggled, this,
          [this] { AutomaticClicked("chkAMZ", "txtBreadthAMZ", kBreadthWarning); });
  connect(&ui_.Check("chkArch"), &QCheckBox::toggled, this,
          [this] { AutomaticClicked("chkArch", "txtArchFactor", kArchFactorWarning); });
  connect(&ui_.Check("chkRowA"), &QCheckBox::toggled, this,
          [this] { RowClicked("chkRowA", "txtSlabcutFirstGob", kRowAWithSlabCut); });
  connect(&ui_.Check("chkRowB"), &QCheckBox::toggled, this,
          [this] { RowClicked("chkRowB", "txtSlabcutSecondGob", kRowBWithSlabCut); });
  connect(&ui_.Check("chkRowC"), &QCheckBox::toggled, this,
          [this] { UpdateRowWidth("chkRowC", "lblwidRowC", "txtWidthC"); });
  connect(&ui_.Check("chkRowD"), &QCheckBox::toggled, this,
          [this] { UpdateRowWidth("chkRowD", "lblwidRowD", "txtWidthD"); });
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
  for (const auto& [name, usual] : {std::pair{"txtAbutmentAngleActiveGob", &kDataBaseAngle},
                                    {"txtAbutmentAngleFirstGob", &kDataBaseAngle},
                                    {"txtAbutmentAngleSecondGob", &kDataBaseAngle},
                                    {"txtCoalStrength", &kDataBaseStrength},
                                    {"txtUnitWeight", &kDataBaseUnitWeight}}) {
    const FieldBox& box = ui_.Box(name);
    connect(&box, &FieldBox::FocusLeft, this,
            [this, &box, units, usual = usual] { WarnOnLeaving(WarningOn(box.Text(), *usual, units)); });
  }
}

void frmKORVAParm::UpdateArch() {
  if (ui_.Check("chkArch").isChecked()) {
    Run([this] {
      const float factor = Calc_Arch(FieldsOfTexts(Texts(), session_.State.Stored.ProjectUnits));
      ui_.Box("txtArchFactor").Fill(GeneralText(factor));
    });
  }
}

void frmKORVAParm::UpdateAMZ() {
  if (ui_.Check("chkAMZ").isChecked()) {
    Run([this] {
      const auto breadth =
          Calc_AMZ(FieldNumber(ui_.Box("txtDepthCover").Text()), session_.State.Stored.ProjectUnits);
      ui_.Box("txtBreadthAMZ").Fill(std::to_string(breadth));
    });
  }
}

void frmKORVAParm::UpdateRatio() {
  Run([this] {
    ui_.Text10->Fill(Calc_Ext_Ratio(FieldsOfTexts(Texts(), session_.State.Stored.ProjectUnits)));
  });
}

void frmKORVAParm::CenterChanged(int index) {
  UpdateRatio();
  if (index == 1 && ui_.Check("chkEqual").isChecked()) {
    ApplyEqual();
  }
  UpdateArch();
}

void frmKORVAParm::ApplyEqual() {
  const bool equal = ui_.Check("chkEqual").isChecked();
  for (int i = 2; i < EntriesOf(Texts()); ++i) {
    FieldBox& box = ui_.Box(CenterName(i));
    if (equal) {
      box.Fill(ui_.Box(CenterName(1)).Text());
    }
    box.setEnabled(!equal);
  }
}

void frmKORVAParm::EntriesChosen() {
  if (ui_.Combo1->currentIndex() < 0) {
    return;
  }
  ui_.Box("txtNumberEntries").setText(ui_.Combo1->currentText());
  ShowEntryFields(EntriesOf(Texts()));
  ApplyEqual();
  if (!loading_) {
    UpdateRatio();
    UpdateArch();
  }
}

void frmKORVAParm::ShowEntryFields(int entries) {
  for (int i = 1; i <= kMaxEntries; ++i) {
    const auto at = static_cast<std::size_t>(i - 1);
    ui_.Text15[at]->setVisible(i <= entries);
    ui_.Line1[at]->setVisible(i <= entries);
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    ui_.Box(CenterName(i)).setVisible(i < entries);
    ui_.Label23[static_cast<std::size_t>(i - 1)]->setVisible(i < entries);
  }
  const std::string first = ui_.Box(CenterName(1)).Text();
  for (int i = kSecondCenter; i < std::min(entries, kMaxEntries) && FieldNumber(first) != 0; ++i) {
    FieldBox& box = ui_.Box(CenterName(i));
    if (FieldNumber(box.Text()) == 0) {
      box.Fill(first);
    }
  }
}

void frmKORVAParm::AutomaticClicked(const char* check, const char* box, std::string_view warning) {
  const bool automatic = ui_.Check(check).isChecked();
  if (!loading_ && !automatic) {
    Say(FormWarning(warning));
  }
  ui_.Box(box).setEnabled(!automatic);
  if (automatic && box == std::string("txtBreadthAMZ")) {
    UpdateAMZ();
  } else if (automatic) {
    UpdateArch();
  }
}

void frmKORVAParm::RowClicked(const char* check, const char* slabCut, std::string_view message) {
  QCheckBox& row = ui_.Check(check);
  if (row.isChecked() && FieldNumber(ui_.Box(slabCut).Text()) > 0) {
    Say(std::string(message));
    row.setChecked(false);
  }
  ShowPanelPicture();
}

void frmKORVAParm::UpdateRowWidth(const char* check, const char* label, const char* box) {
  const bool left = ui_.Check(check).isChecked() && !ui_.Check(check).isHidden();
  ui_.labels.at(label)->setVisible(left);
  ui_.Box(box).setVisible(left);
  ShowPanelPicture();
}

void frmKORVAParm::UpdateRowState(const char* barrier, const char* check) {
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
    Say(FormWarning(kTwoSideGobsWarning));
  }
  ui_.fraActive->setVisible(HasActiveGob(loading));
  ui_.fraBleeder->setVisible(HasActiveGob(loading));
  ui_.fraFirst->setVisible(first);
  ui_.fraSecond->setVisible(second);
  ui_.Check("chkRowC").setVisible(first);
  ui_.Check("chkRowD").setVisible(second);
  UpdateRowWidth("chkRowC", "lblwidRowC", "txtWidthC");
  UpdateRowWidth("chkRowD", "lblwidRowD", "txtWidthD");
}

void frmKORVAParm::ShowPanelPicture() {
  const ParameterTexts texts = Texts();
  ui_.pictures->setCurrentIndex(
      PanelPictureIndex(texts.LoadingCondition, texts.RowA, texts.RowB, texts.RowC, texts.RowD));
}

void frmKORVAParm::WarnOnLeaving(const std::optional<std::string>& warning) {
  if (!warning || !isVisible()) {
    return;
  }
  const bool byMouse = QApplication::mouseButtons() != Qt::NoButton;
  const QPointer<QAbstractButton> pressed =
      byMouse ? qobject_cast<QAbstractButton*>(QApplication::focusWidget()) : nullptr;
  Say(*warning);
  warningShown_ = true;
  timer_.start();
  if (pressed != nullptr) {
    QTimer::singleShot(0, this, [this, pressed] { EndClick(pressed); });
  }
}

// A button that was pressed while the box of a warning came up never hears of its release: its click is done
// now. OK then holds itself back, so that the person may look at the field again.
void frmKORVAParm::EndClick(QAbstractButton* pressed) {
  if (pressed != nullptr && pressed->isDown() && QApplication::mouseButtons() == Qt::NoButton) {
    pressed->setDown(false);
    pressed->click();
  }
}

}  // namespace korva::desktop
