#include "desktop/options/frmKORVAOpts.h"

#include <fmt/format.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <type_traits>
#include <variant>

#include "commands/AcceptForms.h"
#include "core/Limits.h"
#include "core/NumberText.h"
#include "desktop/options/AssociationBox.h"
#include "desktop/options/CaseImportBox.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/FormTabs.h"
#include "desktop/support/FormTools.h"
#include "input/CheckOptions.h"
#include "input/FieldNumber.h"

namespace korva::desktop {

namespace {

constexpr int kOutputTab = 2;
constexpr int kRangeDigits = 6;

constexpr CheckRow<OptionSettings> kChecks[] = {
    {"Edit menu options", "Check1", "Load the input form on file open / file new",
     "New opens the project description, Open the project parameters",
     &OptionSettings::ShowInputScreenOnLoad},
    {"Edit menu options", "chkInputCancel", "Issue warning when discarding changes in input form(s) ",
     "Closing the project parameters with changes asks first", &OptionSettings::IssueWarningCancel},
    {"Print options", "Check8", "Print plot reminders in output",
     "Page 3 tells where the plan shows its values", &OptionSettings::PrintPlotReminder},
    {"Print options", "Check3", "Print module version information", "Page 0 begins with the version",
     &OptionSettings::PrintModuleHeader},
    {"Plot options", "Check4", "Plot entry spacing dimensions", "In the plan",
     &OptionSettings::PlotEntryDims},
    {"Plot options", "Check5", "Plot crosscut spacing dimensions", "In the plan",
     &OptionSettings::PlotXcutDims},
    {"Plot options", "Check7", "Dimension crosscut spacing ONCE",
     "In the plan: for the first pillar line alone", &OptionSettings::PlotSingleXcutDims},
    {"Plot options", "Check6", "Dimension barriers and gobs", "In the plan, slab cuts and bleeder rows too",
     &OptionSettings::PlotGobDims},
    {"View options", "Check2", "View project file in child window",
     "View Plan of the project parameters opens a window; else it draws into their small picture",
     &OptionSettings::ViewChildWindow},
    {"Graph export options", "chkOffice", "Do not ask if MS-Office is installed", "At the export of a graph",
     &OptionSettings::AskOfficeInstall},
    {"Output Options NOT VISIBLE", "chkStrond2DOut", "Enable viewing of STROND2D output file(s)",
     "Kept without effect", &OptionSettings::Strond2DViewOutput},
    {"Output Options NOT VISIBLE", "chkStrond2DProgress",
     "Enable viewing of Strond2D progress information (parameter forms)", "Kept without effect",
     &OptionSettings::Strond2DViewProgress},
    {"Output Options NOT VISIBLE", "chkStrond2DProgOutput",
     "Enable viewing of Strond2D progress information (output menu)", "Kept without effect",
     &OptionSettings::Strond2DViewProgOutput},
};

// A group of option buttons: the title of its frame, the name of its array, their captions, and their option,
// which is the index of the button. Captions 1 and 2 of the rounding stand for each other's action.
struct OptionRow {
  std::string_view Frame;
  const char* Array;
  std::vector<const char*> Captions;
  std::variant<bool OptionSettings::*, StressUnit OptionSettings::*, LoadUnit OptionSettings::*,
               FactorRounding OptionSettings::*, SolverFolder OptionSettings::*>
      Value;
};

template <class Units>
std::vector<const char*> Captions(const Units& units) {
  std::vector<const char*> captions;
  captions.reserve(units.size());
  for (const OutputUnit& unit : units) {
    captions.push_back(unit.Caption);
  }
  return captions;
}

const std::vector<OptionRow>& OptionRows() {
  static const std::vector<OptionRow> rows = {
      {"Plot gob width options",
       "Option3",
       {"Plot gob width to scale", "Plot gob width schematically"},
       &OptionSettings::PlotGobExtLoose},
      {"Rounding of KORVA SF",
       "Option4",
       {"Round to two decimals", "Truncate to two decimals", "Do not round"},
       &OptionSettings::RoundKORVASF},
      {"Output units (pressure/strength)", "Option1", Captions(kStressUnits),
       &OptionSettings::OutputStrUnits},
      {"Output units (load, load gradient)", "Option2", Captions(kLoadUnits),
       &OptionSettings::OutputStrGradUnits},
      {"Temporary File Location",
       "optTmpDir",
       {"Application directory (may not be allowed)", "User temporary directory (hidden) [default]",
        "Root directory (may not be allowed)", "MyFolvane temporary directory (not hidden)"},
       &OptionSettings::iOptDir}};
  return rows;
}

}  // namespace

frmKORVAOpts::frmKORVAOpts(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), checks_(kChecks) {
  setObjectName(QStringLiteral("frmKORVAOpts"));
  setWindowTitle(QStringLiteral("Options"));
  SetMessageTitles(session.State, TitleSlot::kOptions);
  HistoryLog(session.State, "Editing KORVA Options");
  Build();
  Load();
  CenterForm(*this);
}

void frmKORVAOpts::Build() {
  SSTab1_ = new FormTabs(QStringLiteral("SSTab1"), this);
  SSTab1_->setUsesScrollButtons(false);  // wide enough for all tabs
  BuildEditTab();
  BuildPlotTab();
  BuildOutputTab();
  BuildStrondelTab();
  connect(checks_.Of(&OptionSettings::PlotXcutDims), &QCheckBox::toggled,
          checks_.Of(&OptionSettings::PlotSingleXcutDims), &QWidget::setEnabled);
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(SSTab1_, 1);
  all->addLayout(NewOkCancelRow(*this, NewHelpButton("Command3", session_, this), "Command2", "Command1",
                                [this] { Check(); }));
}

QWidget* frmKORVAOpts::NewTab(const char* caption) {
  auto* tab = new QWidget(this);
  NewColumn(tab);
  SSTab1_->AddPage(tab, QLatin1String(caption));
  return tab;
}

// A frame with the check boxes and option buttons whose rows name it.
QGroupBox* frmKORVAOpts::NewFrame(QWidget* tab, const char* caption) {
  auto* frame = new QGroupBox(QLatin1String(caption), tab);
  auto* grid = new QGridLayout(frame);
  tab->layout()->addWidget(frame);
  checks_.AddTo(*frame, *grid, caption);
  for (const OptionRow& row : OptionRows()) {
    for (std::size_t i = 0; row.Frame == caption && i < row.Captions.size(); ++i) {
      options_[row.Array].push_back(
          NewOption(IndexedName(row.Array, static_cast<int>(i)), QLatin1String(row.Captions[i]), frame));
      grid->addWidget(options_[row.Array].back());
    }
  }
  return frame;
}

FieldBox* frmKORVAOpts::AddBox(QGroupBox* frame, const char* name, const char* caption,
                               const std::string& explanation) {
  auto* box = new FieldBox(QLatin1String(name), 0, frame);
  box->Explain(QLatin1String(caption), FromUtf8(explanation));
  box->HoldNumber();
  SetColumns(*box, kRangeDigits);
  auto* label = new QLabel(QLatin1String(caption), frame);
  label->setBuddy(box);
  auto* grid = static_cast<QGridLayout*>(frame->layout());
  const int row = grid->rowCount();
  grid->addWidget(label, row, 0);
  grid->addWidget(box, row, 1);
  grid->setColumnStretch(2, 1);
  boxes_[name] = box;
  return box;
}

void frmKORVAOpts::BuildEditTab() {
  QWidget* tab = NewTab("Edit / Print Options");
  NewFrame(tab, "Edit menu options");
  NewFrame(tab, "Print options");
  tab->layout()->addWidget(new AssociationBox(session_, tab));
  static_cast<QVBoxLayout*>(tab->layout())->addStretch();
}

void frmKORVAOpts::BuildPlotTab() {
  QWidget* tab = NewTab("View / Plot Options");
  NewFrame(tab, "Plot options");
  NewFrame(tab, "Plot gob width options");
  NewFrame(tab, "View options");
  AddImport(tab);
  static_cast<QVBoxLayout*>(tab->layout())->addStretch();
}

void frmKORVAOpts::AddImport(QWidget* tab) {
  import_ = new CaseImportBox(session_, tab);
  tab->layout()->addWidget(import_);
  connect(import_, &CaseImportBox::RunningChanged, this, [this](bool running) {
    for (QWidget* frame : findChildren<QGroupBox*>()) {
      frame->setEnabled(!running);
    }
    for (const char* button : {"Command1", "Command2", "Command3"}) {
      findChild<QPushButton*>(QLatin1String(button))->setEnabled(!running);
    }
    SSTab1_->tabBar()->setEnabled(!running);
  });
}

void frmKORVAOpts::BuildOutputTab() {
  QWidget* tab = NewTab("Output Options");
  NewFrame(tab, "Rounding of KORVA SF");
  NewFrame(tab, "Graph export options");
  QGroupBox* range = NewFrame(tab, "Range of parametric analysis");
  const std::string accepted = fmt::format("Accepted: {} to {}", kLeastRange, kGreatestRange);
  AddBox(range, kRangeMinBox, "Minimum value (%)",
         "Where a parametric graph begins, in percent of the project's value. " + accepted + '.');
  AddBox(range, kRangeMaxBox, "Maximum value (%)", "Where it ends. " + accepted + ", more than the minimum.");
  NewFrame(tab, "Output units (pressure/strength)");
  NewFrame(tab, "Output units (load, load gradient)");
  static_cast<QVBoxLayout*>(tab->layout())->addStretch();
}

void frmKORVAOpts::BuildStrondelTab() {
  QWidget* tab = NewTab("Strondel Options");
  QGroupBox* place = NewFrame(tab, "Temporary File Location");
  place->setToolTip(QStringLiteral("Where the files between this program and the solver lie"));
  AddHiddenFrames(tab);
  static_cast<QVBoxLayout*>(tab->layout())->addStretch();
}

// Options without an effect, kept so that a settings file survives.
void frmKORVAOpts::AddHiddenFrames(QWidget* tab) {
  QGroupBox* output = NewFrame(tab, "Output Options NOT VISIBLE");
  QGroupBox* cells = NewFrame(tab, "Strond2D cell size NOT VISIBLE");
  AddBox(cells, "txtCellSizeEng", "English Units (ft)", "Kept without effect");
  AddBox(cells, "txtCellSizeMet", "Metric Units (m)", "Kept without effect");
  output->hide();
  cells->hide();
}

void frmKORVAOpts::Load() {
  const OptionSettings& options = session_.State.Preferences.Options;
  checks_.Fill(options);
  for (const OptionRow& row : OptionRows()) {
    std::visit([&](auto member) { SetArrayIndex(options_[row.Array], static_cast<int>(options.*member)); },
               row.Value);
  }
  checks_.Of(&OptionSettings::PlotSingleXcutDims)->setEnabled(options.PlotXcutDims);
  boxes_[kRangeMinBox]->Fill(GeneralText(options.PlotRangeMin));
  boxes_[kRangeMaxBox]->Fill(GeneralText(options.PlotRangeMax));
  boxes_["txtCellSizeEng"]->Fill(std::to_string(options.CellSizeEnglish));
  boxes_["txtCellSizeMet"]->Fill(GeneralText(options.CellSizeMetric));
  SSTab1_->setCurrentIndex(0);
}

void frmKORVAOpts::Check() {
  const auto refusal = CheckOptions(boxes_[kRangeMinBox]->Text(), boxes_[kRangeMaxBox]->Text());
  if (!refusal) {
    AcceptOptions(session_.State, Entered());
    session_.Main.Refresh();
    accept();
    return;
  }
  const std::string title = refusal->IsRange ? session_.State.Titles.TitleRangeError : std::string();
  ShowMessage(session_.State, session_.Ports.Messages,
              {refusal->Text,
               MessageButtons::kOk,
               refusal->IsRange ? MessageIcon::kCritical : MessageIcon::kNone,
               title,
               {},
               "refusal-options"});
  SSTab1_->Choose(kOutputTab);
  boxes_[refusal->Control]->ShowRefused(FromUtf8(refusal->Text));
}

OptionSettings frmKORVAOpts::Entered() const {
  OptionSettings options = session_.State.Preferences.Options;
  checks_.Store(options);
  for (const OptionRow& row : OptionRows()) {
    std::visit(
        [&](auto member) {
          using Choice = std::remove_reference_t<decltype(options.*member)>;
          options.*member = static_cast<Choice>(GetArrayIndex(options_.at(row.Array)));
        },
        row.Value);
  }
  const auto number = [this](const char* box) { return FieldNumber(boxes_.at(box)->Text()); };
  options.PlotRangeMin = static_cast<float>(number(kRangeMinBox));
  options.PlotRangeMax = static_cast<float>(number(kRangeMaxBox));
  options.CellSizeEnglish = static_cast<int>(
      std::clamp<double>(RoundHalfEven(number("txtCellSizeEng"), 0), -kGreatestCell, kGreatestCell));
  options.CellSizeMetric = static_cast<float>(number("txtCellSizeMet"));
  return options;
}

// While rows are imported, the window's own ways out end that first.
void frmKORVAOpts::reject() {
  if (import_->IsRunning()) {
    import_->Cancel();
    return;
  }
  HistoryLog(session_.State, "Options Not Modified");
  QDialog::reject();
}

}  // namespace korva::desktop
