#include "desktop/input/frmKORVAParm.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPointer>

#include "commands/AcceptForms.h"
#include "commands/Attempt.h"
#include "commands/Calculate.h"
#include "commands/PlanCommands.h"
#include "desktop/plan/PlanView.h"
#include "desktop/plan/frmPicture.h"
#include "input/CheckParameters.h"

namespace korva::desktop {

namespace {

constexpr int kWarningHold = 200;  // milliseconds

}  // namespace

frmKORVAParm::frmKORVAParm(Session& session, QWidget* parent)
    : QDialog(parent, Qt::Window), session_(session), ui_(*this, session.State.Stored.ProjectUnits) {
  setObjectName(QStringLiteral("frmKORVAParm"));
  setWindowTitle(QStringLiteral("Input Project Parameters"));
  setAttribute(Qt::WA_DeleteOnClose);
  timer_.setParent(this);
  timer_.setObjectName(QStringLiteral("Timer1"));
  timer_.setInterval(kWarningHold);
  SetMessageTitles(session_.State, TitleSlot::kParameters);
  Wire();
  WireWarnings();
  WirePreview();
  Load();
  ShowPreview();
  ui_.Box(&Project::EntryHeight).setFocus();
  CenterForm(*this);
}

void frmKORVAParm::Load() {
  Korva& korva = session_.State;
  const ParameterTexts texts = TextsOfProject(korva.Stored.ProjectInput);
  for (int i = 1; i <= kMaxRows; ++i) {
    ui_.txtXcutCenters[i]->Fill(texts.XcutCenters[i]);
  }
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    ui_.boxes[i]->Fill(texts.Numbers[i]);
  }
  const bool knownModel = SetArrayIndex(ui_.optLam, static_cast<int>(texts.CalcMode));
  const bool knownCondition = SetArrayIndex(ui_.optAnal, static_cast<int>(texts.LoadingCondition));
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    ui_.checks[i]->setChecked(texts.Flags[i]);
  }
  ui_.txtNumberEntries->Fill(texts.NumberEntries);
  const int entries = EntriesOf(texts);
  ui_.Combo1->setPlaceholderText(FromUtf8(texts.NumberEntries));
  ui_.Combo1->setCurrentIndex(ui_.Combo1->findText(FromUtf8(texts.NumberEntries)));
  ShowEntryFields(entries);
  ShowConditionFields();
  HistoryLog(korva, "Editing Project Parameters");
  if (!knownModel || !knownCondition) {
    ShowMessage(korva, session_.Ports.Messages,
                {.text = "Internal Error: SetArrayIndex. Check input/form data.",
                 .title = korva.Titles.TitleRangeError,
                 .topic = "messages-forms"});
  }
  ui_.SSTab1->setCurrentIndex(0);
  UpdateRatio();
  loading_ = false;
  UpdateArch();
  UpdateAMZ();
  ui_.Box(&Project::ArchFactor).setEnabled(!texts[&Project::ArchAuto]);
  ui_.Box(&Project::BreadthAMZ).setEnabled(!texts[&Project::AMZAuto]);
  UpdateRowState(&Project::BarrierFirstGob, &Project::RowC);
  UpdateRowState(&Project::BarrierSecondGob, &Project::RowD);
  opened_ = Texts();
}

ParameterTexts frmKORVAParm::Texts() const {
  ParameterTexts texts;
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    texts.Numbers[i] = ui_.boxes[i]->Text();
  }
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    texts.Flags[i] = ui_.checks[i]->isChecked();
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    texts.XcutCenters[i] = ui_.txtXcutCenters[i]->Text();
  }
  texts.NumberEntries = ui_.txtNumberEntries->Text();
  texts.LoadingCondition = Condition();
  texts.CalcMode = static_cast<OverburdenModel>(GetArrayIndex(ui_.optLam));
  return texts;
}

PanelLoading frmKORVAParm::Condition() const {
  return static_cast<PanelLoading>(GetArrayIndex(ui_.optAnal));
}

void frmKORVAParm::Run(const std::function<void()>& step) {
  Attempt(session_.State, session_.Ports.Messages, step);
}

void frmKORVAParm::ShowWarning(const std::string& text) {
  ShowMessage(session_.State, session_.Ports.Messages, {.text = text, .topic = "warnings-input"});
}

bool frmKORVAParm::CheckAndShow() {
  const auto refusal = CheckParameters(Texts());
  if (!refusal) {
    return true;
  }
  const MessageTitles& titles = session_.State.Titles;
  ShowMessage(session_.State, session_.Ports.Messages,
              {refusal->Text,
               MessageButtons::kOk,
               MessageIcon::kCritical,
               refusal->Kind == RefusalKind::kLogic ? titles.TitleLogicError : titles.TitleRangeError,
               {},
               "warnings-refusals"});
  auto& box = *findChild<FieldBox*>(FromUtf8(refusal->Control));
  ui_.SSTab1->Choose(static_cast<int>(refusal->Tab));
  ShowHidden(box);
  box.ShowRefused(FromUtf8(refusal->Text));
  return false;
}

// Shows a box that the loading condition hides, with what it stands in and belongs to, until another
// condition is chosen.
void frmKORVAParm::ShowHidden(FieldBox& box) {
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    if (const auto flag = FlagThatShows(kNumberFields[i]); flag && ui_.boxes[i] == &box) {
      ui_.checks[*flag]->show();
    }
  }
  for (QLabel* label : findChildren<QLabel*>()) {
    if (label->buddy() == &box) {
      label->show();
    }
  }
  box.show();
  box.parentWidget()->show();
}

void frmKORVAParm::AcceptAndClose() {
  const QPointer<frmKORVAParm> there = this;
  ui_.cmdOK->setFocus();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);  // no second click on a button
  if (!there || !isVisible()) {
    return;
  }
  if (!CheckAndShow()) {
    warningShown_ = false;
    return;
  }
  if (warningShown_) {
    warningShown_ = false;  // the person may want to look at the field again
    return;
  }
  AcceptParameters(session_.State, Texts());
  accepted_ = true;
  close();
}

void frmKORVAParm::Results() {
  if (!CheckAndShow()) {
    return;
  }
  StoreCalcParameters(session_.State, Texts());
  session_.Main.KeepWork();
  bool calculated = false;
  {
    const BusyPointer busy(session_.Ports.Busy);
    calculated = CalculateFromForm(session_.State, session_.Ports.Messages);
  }
  if (calculated) {
    hide();
    session_.Main.ShowResults(this);
  }
}

void frmKORVAParm::View() {
  if (!CheckAndShow()) {
    return;
  }
  StoreCalcParameters(session_.State, Texts());
  if (session_.State.Preferences.Options.ViewChildWindow) {
    if (frmPicture::Open(session_, *this, kPlanFromForm) != nullptr) {
      hide();
    }
  } else {
    DrawPlanPreview();
  }
}

void frmKORVAParm::DrawPlanPreview() {
  if (!ui_.Picture1->Show(PlanRequestOf(session_.State, kPlanFromForm, false))) {
    ShowWarning(std::string(kInvalidPillars));
  }
}

// What is typed in, as long as it is a panel.
void frmKORVAParm::ShowPreview() {
  const ParameterTexts texts = Texts();
  Project draft = session_.State.Stored.ProjectInput;
  StoreParameters(texts, draft);
  const auto request = PreviewRequest(session_.State, draft);
  if (!CheckParameters(texts) && request) {
    ui_.Picture1->Show(*request);
  } else {
    ui_.Picture1->Clear();
  }
}

std::optional<StoredProject> frmKORVAParm::Draft() const {
  StoredProject draft = session_.State.Stored;
  const ParameterTexts texts = Texts();
  if (texts == opened_ || !ParametersChanged(texts, draft.ProjectInput)) {
    return std::nullopt;
  }
  StoreParameters(texts, draft.ProjectInput);
  return draft;
}

void frmKORVAParm::reject() {
  close();
}

void frmKORVAParm::closeEvent(QCloseEvent* event) {
  if (!accepted_ && !DiscardParameters(session_.State, session_.Ports.Messages, Texts())) {
    event->ignore();
    return;
  }
  session_.Main.SetInputEnabled(true);
  session_.Main.Refresh();
  event->accept();
}

}  // namespace korva::desktop
