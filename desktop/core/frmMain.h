// The main window: menus, toolbar, the open project's card, the history. It opens the other windows and runs
// the commands; it computes nothing.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <memory>
#include <optional>

#include "commands/FileMenu.h"
#include "commands/Recovery.h"
#include "commands/SweepCommand.h"
#include "desktop/core/MainMenus.h"
#include "desktop/support/ContextHelp.h"
#include "desktop/support/Session.h"

class QLabel;
class QPlainTextEdit;
class QStackedWidget;

namespace korva::desktop {

class ProjectCard;
class StatusLine;
class SweepRunner;
class frmHelp;
class frmKORVADesc;
class frmKORVAParm;
class frmStrondCalc;

class frmMain final : public QMainWindow, public MainWindow {
  Q_OBJECT

 public:
  frmMain(Korva& korva, Ports& ports, PicturePrinter& pictures);
  ~frmMain() override;

  // Shows the disclaimer if the settings ask for it. False if it was refused: the program ends then.
  bool AcceptDisclaimer();
  // Begins to look for a newer version, and asks about one as soon as it is known and no other window is
  // open.
  void CheckForUpdates();
  // An empty project, the window on the screen, then kept work, the last file or `file`, in this order.
  void Begin(const std::string& file);

  void Refresh() override;
  void ApplyDisplaySettings() override;
  void ApplyHistoryFont() override;
  void EditParameters() override;
  void ShowResults(QWidget* returnTo) override;
  void ShowHelp(const std::vector<std::string>& labels) override;
  void KeepWork() override { recovery_.KeepCopy(); }
  void KeepDroppedWork() override { recovery_.KeepDroppedWork(); }
  void QuitNow() override;
  void SetInputEnabled(bool enabled) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  MainMenus::Commands Commands();
  void BuildBody();
  // Runs a command; a run-time error ends here.
  void Run(const std::function<void()>& command);
  // False while another command, a sweep, or a window in front of this one is going on.
  bool MayStart() const;
  // Runs it as Run does, unless it may not start: menus outside of the window know nothing of what goes on.
  void RunAlone(const std::function<void()>& command);

  void FileItem(int index);
  // False if the person does not want an empty project printed.
  bool PrintItem(int index);
  void EditItem(int index);
  void CalcItem(int index);
  void GraphItem(int index);
  void UtilItem(int index);
  void HelpItem(int index);
  // The help window, made when it is first asked for; nothing, after a message, if there is no help file.
  frmHelp* Help();

  void RunSweep(SweepJob job);
  void AfterSweep();
  void ShowGraph();
  void AfterOpening(bool opened);
  void SetGraphMenu();
  void ShowHistory();
  void ToggleHistory();
  void AnswerUpdates();
  // What the open form holds that is not in the project yet.
  std::optional<StoredProject> Draft() const;

  Korva& korva_;
  Ports& ports_;
  Session session_;
  Recovery recovery_;
  FileMenu fileMenu_;
  MainMenus menus_;
  QPlainTextEdit* txtMain_ = nullptr;
  QLabel* lblVer_ = nullptr;
  QStackedWidget* middle_ = nullptr;
  ProjectCard* card_ = nullptr;
  StatusLine* status_ = nullptr;
  QPointer<frmKORVAParm> parameters_;   // while it is open
  QPointer<frmKORVADesc> description_;  // likewise
  QTimer recoveryTimer_;
  bool commandRuns_ = false;
  std::unique_ptr<frmHelp> help_;
  ContextHelp contextHelp_;
  std::unique_ptr<FetchPort::Running> versionFetch_;
  std::string versionFile_;                       // that has come and was not asked about yet
  QTimer answerTimer_{this};                      // until the question can be asked
  std::unique_ptr<frmStrondCalc> sweepProgress_;  // while a laminated sweep is going on
  std::unique_ptr<SweepRunner> sweep_;            // which ends before it
};

}  // namespace korva::desktop
