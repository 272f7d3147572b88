// The commands of the main window's menus.
#include <QApplication>
#include <QPlainTextEdit>
#include <algorithm>

#include "commands/Attempt.h"
#include "commands/Calculate.h"
#include "commands/HelpCommands.h"
#include "commands/PrintCommands.h"
#include "commands/ProjectSummary.h"
#include "commands/Updates.h"
#include "desktop/core/frmMain.h"
#include "desktop/files/frmSet.h"
#include "desktop/graphs/SweepRunner.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmStrondCalc.h"
#include "desktop/input/frmKORVADesc.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/options/frmConvert.h"
#include "desktop/options/frmKORVAOpts.h"
#include "desktop/options/frmUnits.h"
#include "desktop/reports/frmResTxtPlt.h"
#include "desktop/services/frmDisclaimer.h"
#include "desktop/services/frmHelp.h"
#include "desktop/services/frmPreview.h"
#include "desktop/services/frmResource.h"
#include "desktop/services/frmTextBrow.h"
#include "desktop/services/frmUpdate.h"
#include "graphs/GraphTitles.h"
#include "services/HelpTexts.h"

namespace korva::desktop {

namespace {

constexpr int kAnswerInterval = 200;  // milliseconds

}  // namespace

void frmMain::FileItem(int index) {
  switch (index) {
    case kNew:
      fileMenu_.New();
      Refresh();
      if (korva_.Preferences.Options.ShowInputScreenOnLoad) {
        EditItem(kDescription);
      }
      break;
    case kOpen:
      AfterOpening(fileMenu_.Open());
      break;
    case kSave:
    case kSaveAs:
      fileMenu_.Save(index == kSaveAs);
      break;
    case kImportVosk:
      AfterOpening(fileMenu_.ImportVosk());
      break;
    case kPrinterSetup:
      ports_.Printer.SetUp();
      break;
    case kPrint:
    case kPrintPreview:
      if (!PrintItem(index)) {
        return;
      }
      break;
    case kViewSourceFiles: {
      frmTextBrow form(session_, this);
      form.exec();
      break;
    }
    case kExit:
      close();
      return;
    default:
      break;
  }
  menus_.ShowRecentFiles(fileMenu_.RecentCaptions());
  SetGraphMenu();
}

bool frmMain::PrintItem(int index) {
  if (index == kPrint) {
    return PrintInputPage(korva_, ports_);
  }
  if (!LoadInputPage(korva_, ports_.Messages)) {
    return false;
  }
  frmPreview preview(session_, this);
  preview.exec();
  return true;
}

void frmMain::AfterOpening(bool opened) {
  menus_.ShowRecentFiles(fileMenu_.RecentCaptions());
  SetGraphMenu();
  Refresh();
  if (!opened) {
    return;
  }
  for (const std::string& notice : NoticeTexts(korva_.FileNotices)) {
    HistoryLog(korva_, notice);
  }
  if (korva_.Preferences.Options.ShowInputScreenOnLoad) {
    EditParameters();
  }
}

void frmMain::EditItem(int index) {
  if (index == kParameters) {
    EditParameters();
    return;
  }
  frmKORVADesc form(session_, this);
  description_ = &form;
  form.exec();
}

std::optional<StoredProject> frmMain::Draft() const {
  if (description_ && description_->isVisible()) {
    return description_->Draft();
  }
  return parameters_ ? parameters_->Draft() : std::nullopt;
}

void frmMain::EditParameters() {
  const BusyPointer busy(ports_.Busy);
  parameters_ = new frmKORVAParm(session_);
  SetInputEnabled(false);
  parameters_->show();
}

void frmMain::CalcItem(int index) {
  KeepWork();
  const BusyPointer busy(ports_.Busy);
  if (index == kStabilityFactors && CalculateStabilityFactors(korva_, ports_.Messages)) {
    ShowResults(this);
  }
}

void frmMain::ShowResults(QWidget* returnTo) {
  SetInputEnabled(false);
  (new frmResTxtPlt(session_, returnTo))->show();
}

void frmMain::GraphItem(int index) {
  if (auto job = PrepareSweep(korva_, ports_.Messages, static_cast<GraphKind>(index))) {
    RunSweep(std::move(*job));
  }
}

// The traditional model takes no time; the laminated one runs in the background.
void frmMain::RunSweep(SweepJob job) {
  sweep_ = std::make_unique<SweepRunner>(std::move(job), nullptr);
  connect(sweep_.get(), &SweepRunner::Ended, this, &frmMain::AfterSweep);
  if (sweep_->Job().Laminated) {
    sweepProgress_ = std::make_unique<frmStrondCalc>(nullptr);
    connect(sweep_.get(), &SweepRunner::Step, sweepProgress_.get(), &frmStrondCalc::ShowStep);
    connect(sweepProgress_.get(), &frmStrondCalc::Cancelled, sweep_.get(), &SweepRunner::Cancel);
  }
  sweep_->Start();
  SetInputEnabled(false);  // no second command before the sweep has ended
  if (sweepProgress_) {
    sweepProgress_->show();
  }
}

void frmMain::AfterSweep() {
  const std::unique_ptr<SweepRunner> sweep = std::move(sweep_);
  sweepProgress_.reset();
  SetInputEnabled(true);
  bool shown = false;
  bool again = false;
  Run([&, taken = false]() mutable {
    if (taken) {  // the person wants the failed step tried again: the sweep starts over
      again = true;
      return;
    }
    taken = true;
    SweepOutcome outcome = sweep->TakeOutcome();
    shown = AskForPoints(korva_, ports_.Messages, outcome);
    const std::optional<RuntimeError> failure = outcome.Failure;
    KeepSweep(korva_, sweep->Job(), shown ? std::move(outcome) : SweepOutcome());
    if (failure) {
      throw RuntimeError(failure->Number(), failure->Detail());
    }
  });
  if (again) {
    Run([&] { GraphItem(sweep->Job().Graph); });
  } else if (shown) {
    Run([this] { ShowGraph(); });
  }
}

void frmMain::ShowGraph() {
  const BusyPointer busy(ports_.Busy);
  auto graph = std::make_unique<frmGraph>(session_);
  graph->GraphInit(korva_.Sweep.GraphIndex);
  graph->DrawCurve();
  SetInputEnabled(false);
  graph.release()->show();  // it deletes itself
}

void frmMain::UtilItem(int index) {
  switch (index) {
    case kSettings:
      frmSet(session_, this).exec();
      break;
    case kOptions:
      frmKORVAOpts(session_, this).exec();
      break;
    case kUnitConversion:
      frmUnits(session_, this).exec();
      break;
    case kFileConversion:
      if (korva_.ProjectEmpty) {
        ShowMessage(korva_, ports_.Messages, {.text = std::string(kEmptyFile), .topic = "messages-files"});
      } else if (!korva_.ProjectSaved) {
        ShowMessage(korva_, ports_.Messages,
                    {.text = "Save Current File before accessing this option", .topic = "messages-files"});
      } else {
        frmConvert(session_, this).exec();
      }
      break;
    case kClearHistory:
      ClearHistory(korva_.SessionHistory);
      break;
    case kToggleHistory:
      ToggleHistory();
      break;
    case kCopyHistory:
      ports_.Clipboard.SetText(korva_.SessionHistory.Text);
      break;
    default:  // a separator
      break;
  }
}

void frmMain::ToggleHistory() {
  const bool visible = txtMain_->isHidden();
  txtMain_->setVisible(visible);
  menus_.Item("mnuUtilItem", kToggleHistory)
      .setText(QLatin1String(visible ? kCloseHistoryCaption : "Restore History &Window"));
  menus_.Item("mnuUtilItem", kCopyHistory).setEnabled(visible);
}

void frmMain::HelpItem(int index) {
  switch (index) {
    case kHelpContents:
    case kHelpIndex:
      if (frmHelp* help = Help()) {
        index == kHelpContents ? help->ShowContents() : help->ShowIndex();
      }
      break;
    case kHelpManual:
      OpenManual(korva_, ports_);
      break;
    case kResourceFiles:
      frmResource(session_, this).exec();
      break;
    case kDisclaimer:
      if (frmDisclaimer(session_, this).exec() != QDialog::Accepted) {
        QuitNow();
      }
      break;
    case kProgramUpdates:
      versionFetch_.reset();  // the window asks again, when it is told to
      answerTimer_.stop();
      frmUpdate(session_, this).exec();
      break;
    case kAbout:
      ShowAbout(korva_, ports_.Messages);
      break;
    default:  // a separator
      break;
  }
}

frmHelp* frmMain::Help() {
  if (!help_) {
    const BusyPointer busy(ports_.Busy);
    help_ = frmHelp::Open(session_);
  }
  return help_.get();
}

void frmMain::ShowHelp(const std::vector<std::string>& labels) {
  Attempt(korva_, ports_.Messages, [&] {
    if (frmHelp* help = Help()) {
      help->ShowTopic(labels);
    }
  });
}

void frmMain::CheckForUpdates() {
  answerTimer_.setObjectName(QStringLiteral("answerTimer"));
  answerTimer_.setInterval(kAnswerInterval);
  connect(&answerTimer_, &QTimer::timeout, this, [this] { AnswerUpdates(); });
  versionFetch_ = FetchVersionFile(korva_, ports_, [this](const FetchAnswer& answer) {
    versionFetch_.reset();
    if (answer.Complete) {
      versionFile_ = answer.Bytes;
      answerTimer_.start();
    }
  });
}

// Nobody is interrupted: the question waits until the main window is the only one, the help too, no menu is
// open, and nothing is going on.
void frmMain::AnswerUpdates() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  const bool alone = std::all_of(windows.begin(), windows.end(), [this](const QWidget* window) {
    return window == this || !window->isVisible() || window->windowType() == Qt::ToolTip;
  });
  const bool busy = QApplication::overrideCursor() != nullptr;
  if (!isVisible() || isMinimized() || !isEnabled() || busy || !alone) {
    return;
  }
  answerTimer_.stop();
  Run([this] {
    if (CompareServerVersion(korva_, ports_.Messages, versionFile_)) {
      frmUpdate update(session_, this);
      update.RunAll();
      update.exec();
    }
  });
}

// Unsaved work is offered at the next start.
void frmMain::QuitNow() {
  recovery_.EndKeepingWork();
  recoveryTimer_.stop();
  QCoreApplication::exit();  // at once; quit() would close the windows, each with its questions
}

void frmMain::SetGraphMenu() {
  for (int i = 0; i < kGraphs; ++i) {
    menus_.Item("mnuCalcGrafItem", i).setEnabled(HasBarrierOf(static_cast<GraphKind>(i), korva_.ProjectCalc));
  }
}

}  // namespace korva::desktop
