#include "desktop/input/frmKORVAParm.h"

#include <QCloseEvent>
#include <QCoreApplication>

#include "commands/Attempt.h"
#include "commands/Calculate.h"
#include "core/NumberText.h"
#include "desktop/services/Capture.h"
#include "input/CheckParameters.h"
#include "input/FieldNumber.h"
#include "input/ParameterWarnings.h"
#include "plan/PanelPicture.h"
#include "services/HelpTexts.h"

namespace korva::desktop {

namespace {

constexpr int kTitleSlot = 2;
constexpr int kWarningHold = 200;  // milliseconds
constexpr int kFirstHelpContext = 2201;
constexpr int kFewestEntries = 2;

std::string CenterName(int index) {
  return IndexedName("txtXcutCenters", index).toStdString();
}

}  // namespace

frmKORVAParm::frmKORVAParm(Session& session, QWidget* parent)
    : QDialog(parent, Qt::Window), session_(session), ui_(*this, session.State.Stored.ProjectUnits) {
  setObjectName(QStringLiteral("frmKORVAParm"));
  setWindowTitle(QStringLiteral("Input Project Parameters"));
  setAttribute(Qt::WA_DeleteOnClose);
  timer_.setParent(this);
  timer_.setObjectName(QStringLiteral("Timer1"));
  timer_.setInterval(kWarningHold);
  session_.State.Titles = MessageTitlesOf(kTitleSlot);
  Wire();
  WireWarnings();
  Load();
  InstallContextHelp(*this);
  ui_.Box("txtEntryHeight").setFocus();
  CenterForm(*this);
}

void frmKORVAParm::Load() {
  Korva& korva = session_.State;
  const ParameterTexts texts = TextsOfProject(korva.Stored.ProjectInput);
  for (int i = 1; i <= kMaxRows; ++i) {
    ui_.Box(CenterName(i)).Fill(texts.XcutCenters[i]);
  }
  for (const ValueField& field : kValueFields) {
    ui_.Box(field.Control).Fill(texts.*field.Text);
  }
  for (const SingleField& field : kSingleFields) {
    ui_.Box(field.Control).Fill(texts.*field.Text);
  }
  const bool knownModel = SetArrayIndex(ui_.optLam, texts.CalcMode);
  const bool knownCondition = SetArrayIndex(ui_.optAnal, texts.LoadingCondition);
  for (const FlagField& field : kFlagFields) {
    ui_.Check(field.Control).setChecked(texts.*field.Flag == 1);
  }
  ui_.Box("txtNumberEntries").Fill(texts.NumberEntries);
  const int entries = EntriesOf(texts);
  ui_.Combo1->setPlaceholderText(FromUtf8(texts.NumberEntries));
  ui_.Combo1->setCurrentIndex(ui_.Combo1->findText(FromUtf8(texts.NumberEntries)));
  ShowEntryFields(entries);
  ShowConditionFields();
  HistoryLog(korva.SessionHistory, korva.Preferences, "Editing Project Parameters");
  if (!knownModel || !knownCondition) {
    ShowMessage(korva, session_.Outside.Messages,
                {.text = "Internal Error: SetArrayIndex. Check input/form data.",
                 .title = korva.Titles.TitleRangeError});
  }
  ui_.SSTab1->setCurrentIndex(0);
  UpdateRatio();
  loading_ = false;
  UpdateArch();
  UpdateAMZ();
  ui_.Box("txtArchFactor").setEnabled(texts.ArchAuto == 0);
  ui_.Box("txtBreadthAMZ").setEnabled(texts.AMZAuto == 0);
  UpdateRowState("txtBarrierFirstGob", "chkRowC");
  UpdateRowState("txtBarrierSecondGob", "chkRowD");
}

void frmKORVAParm::Wire() {
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
  connect(ui_.Combo1, &QComboBox::currentIndexChanged, this, &frmKORVAParm::EntriesChosen);
  connect(&ui_.Check("chkEqual"), &QCheckBox::toggled, this, &frmKORVAParm::ApplyEqual);
  connect(&ui_.Check("chkAMZ"), &QCheckBox::toggled, this,
          [this] { AutomaticClicked("chkAMZ", "txtBreadthAMZ", AutomaticAMZWarning()); });
  connect(&ui_.Check("chkArch"), &QCheckBox::toggled, this,
          [this] { AutomaticClicked("chkArch", "txtArchFactor", AutomaticArchWarning()); });
  connect(&ui_.Check("chkRowA"), &QCheckBox::toggled, this,
          [this] { RowClicked("chkRowA", "txtSlabcutFirstGob", kRowAWithSlabCut); });
  connect(&ui_.Check("chkRowB"), &QCheckBox::toggled, this,
          [this] { RowClicked("chkRowB", "txtSlabcutSecondGob", kRowBWithSlabCut); });
  connect(&ui_.Check("chkRowC"), &QCheckBox::toggled, this,
          [this] { UpdateRowWidth("chkRowC", "lblwidRowC", "txtWidthC"); });
  connect(&ui_.Check("chkRowD"), &QCheckBox::toggled, this,
          [this] { UpdateRowWidth("chkRowD", "lblwidRowD", "txtWidthD"); });
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
  connect(ui_.SSTab1, &QTabWidget::currentChanged, this,
          [this](int tab) { ui_.SSTab1->setProperty("HelpContextID", kFirstHelpContext + tab); });
  connect(&timer_, &QTimer::timeout, this, [this] {
    warningShown_ = false;
    timer_.stop();
  });
  connect(ui_.cmdOK, &QPushButton::clicked, this, &frmKORVAParm::Accept);
  connect(ui_.cmdCancel, &QPushButton::clicked, this, &QWidget::close);
  connect(ui_.cmdResults, &QPushButton::clicked, this, [this] { Run([this] { Results(); }); });
  connect(ui_.cmdView, &QPushButton::clicked, this, [this] { Run([this] { View(); }); });
  connect(ui_.cmdCopyClip, &QPushButton::clicked, this, [this] { CopyDialogToClipboard(session_, *this); });
  connect(ui_.cmdHelp, &QPushButton::clicked, this, [this] { ShowHelpHint(session_); });
}

void frmKORVAParm::WireWarnings() {
  for (const char* name :
       {"txtAbutmentAngleActiveGob", "txtAbutmentAngleFirstGob", "txtAbutmentAngleSecondGob"}) {
    FieldBox& box = ui_.Box(name);
    connect(&box, &FieldBox::FocusLeft, this,
            [this, &box] { WarnOnLeaving(AbutmentAngleWarning(box.Text())); });
  }
  const std::int16_t units = session_.State.Stored.ProjectUnits;
  connect(&ui_.Box("txtCoalStrength"), &FieldBox::FocusLeft, this,
          [this, units] { WarnOnLeaving(CoalStrengthWarning(ui_.Box("txtCoalStrength").Text(), units)); });
  connect(&ui_.Box("txtUnitWeight"), &FieldBox::FocusLeft, this,
          [this, units] { WarnOnLeaving(UnitWeightWarning(ui_.Box("txtUnitWeight").Text(), units)); });
}

ParameterTexts frmKORVAParm::Texts() const {
  ParameterTexts texts;
  for (const ValueField& field : kValueFields) {
    texts.*field.Text = ui_.Box(field.Control).Text();
  }
  for (const SingleField& field : kSingleFields) {
    texts.*field.Text = ui_.Box(field.Control).Text();
  }
  for (const FlagField& field : kFlagFields) {
    texts.*field.Flag = ui_.Check(field.Control).isChecked() ? 1 : 0;
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    texts.XcutCenters[i] = ui_.Box(CenterName(i)).Text();
  }
  texts.NumberEntries = ui_.Box("txtNumberEntries").Text();
  texts.LoadingCondition = Condition();
  texts.CalcMode = static_cast<std::int16_t>(GetArrayIndex(ui_.optLam));
  return texts;
}

std::int16_t frmKORVAParm::Condition() const {
  return static_cast<std::int16_t>(GetArrayIndex(ui_.optAnal));
}

void frmKORVAParm::Run(const std::function<void()>& step) {
  Attempt(session_.State, session_.Outside.Messages, step);
}

void frmKORVAParm::Say(const std::string& text) {
  ShowMessage(session_.State, session_.Outside.Messages, {.text = text, .title = {}});
}

// --- dependent fields

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
  for (int i = kFewestEntries; i < std::min(entries, kMaxEntries) && FieldNumber(first) != 0; ++i) {
    FieldBox& box = ui_.Box(CenterName(i));
    if (FieldNumber(box.Text()) == 0) {
      box.Fill(first);
    }
  }
}

void frmKORVAParm::AutomaticClicked(const char* check, const char* box, const std::string& warning) {
  const bool automatic = ui_.Check(check).isChecked();
  if (!loading_ && !automatic) {
    Say(warning);
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
  const int condition = Condition();
  if (condition == 3 && !loading_) {
    Say(DeepCoverWarning());
  }
  ui_.fraActive->setVisible(condition >= 1);
  ui_.fraBleeder->setVisible(condition >= 1);
  ui_.fraFirst->setVisible(condition >= 2);
  ui_.fraSecond->setVisible(condition == 3);
  ui_.Check("chkRowC").setVisible(condition >= 2);
  ui_.Check("chkRowD").setVisible(condition == 3);
  UpdateRowWidth("chkRowC", "lblwidRowC", "txtWidthC");
  UpdateRowWidth("chkRowD", "lblwidRowD", "txtWidthD");
}

void frmKORVAParm::ShowPanelPicture() {
  const ParameterTexts texts = Texts();
  ui_.pictures->setCurrentIndex(
      PanelPictureIndex(texts.LoadingCondition, texts.RowA, texts.RowB, texts.RowC, texts.RowD));
}

// --- warnings, checks, buttons

void frmKORVAParm::WarnOnLeaving(const std::optional<std::string>& warning) {
  if (!warning || !isVisible()) {
    return;
  }
  Say(*warning);
  warningShown_ = true;
  timer_.start();
}

bool frmKORVAParm::CheckAndShow() {
  const auto refusal = CheckParameters(Texts());
  if (!refusal) {
    return true;
  }
  const MessageTitles& titles = session_.State.Titles;
  ShowMessage(session_.State, session_.Outside.Messages,
              {refusal->Text, MessageButtons::kOk, MessageIcon::kCritical,
               refusal->Kind == RefusalKind::kLogic ? titles.TitleLogicError : titles.TitleRangeError});
  ui_.SSTab1->setCurrentIndex(static_cast<int>(refusal->Tab));
  ui_.Box(refusal->Control).ShowRefused(FromUtf8(refusal->Text));
  return false;
}

void frmKORVAParm::Accept() {
  ui_.cmdOK->setFocus();
  QCoreApplication::processEvents();
  if (!CheckAndShow()) {
    warningShown_ = false;
    return;
  }
  if (warningShown_) {
    warningShown_ = false;  // the person may want to look at the field again
    return;
  }
  acceptOnClose_ = true;
  close();
}

void frmKORVAParm::StoreCalcParameters() {
  StoreParameters(Texts(), session_.State.ProjectCalc);
  FillPlotCopies(session_.State);
}

void frmKORVAParm::Results() {
  if (!CheckAndShow()) {
    return;
  }
  StoreCalcParameters();
  bool calculated = false;
  {
    const BusyPointer busy(session_.Outside.Busy);
    calculated = CalculateWorkingCopy(session_.State, session_.Outside.Messages);
  }
  if (calculated) {
    hide();
    session_.Main.ShowResults(this);
  }
}

void frmKORVAParm::View() {
  if (CheckAndShow()) {
    StoreCalcParameters();
    Say(NotBuiltText(ui_.cmdView->text().toStdString()));
  }
}

std::optional<StoredProject> frmKORVAParm::Draft() const {
  StoredProject draft = session_.State.Stored;
  if (!ParametersChanged(Texts(), draft.ProjectInput)) {
    return std::nullopt;
  }
  StoreParameters(Texts(), draft.ProjectInput);
  return draft;
}

void frmKORVAParm::reject() {
  close();
}

void frmKORVAParm::closeEvent(QCloseEvent* event) {
  Korva& korva = session_.State;
  const bool changed = ParametersChanged(Texts(), korva.Stored.ProjectInput);
  if (changed && !acceptOnClose_ && korva.Preferences.Options.IssueWarningCancel == 1 &&
      ShowMessage(korva, session_.Outside.Messages,
                  {"Changes in Input Data will be discarded. Proceed?",
                   MessageButtons::kYesNo,
                   MessageIcon::kNone,
                   {}}) != MessageAnswer::kYes) {
    event->ignore();
    return;
  }
  if (acceptOnClose_ && changed) {
    StoreParameters(Texts(), korva.Stored.ProjectInput);
    korva.ProjectSaved = false;
    korva.ProjectEmpty = false;
  }
  if (acceptOnClose_) {
    korva.ProjectUnitsLocked = true;
  }
  HistoryLog(korva.SessionHistory, korva.Preferences,
             acceptOnClose_ && changed ? "Project Parameters Modified" : "Project Parameters Not Modified");
  session_.Main.SetInputEnabled(true);
  session_.Main.Refresh();
  event->accept();
}

}  // namespace korva::desktop
