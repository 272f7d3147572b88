// Drives the whole desktop program by random actions and looks after each of them whether it still stands:
// korva_random_actions [--seed N] [--actions N] [--tell]. The seed is told first; the same one does the same
// again, as far as the clock lets it.
#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numeric>

#include "commands/StartUp.h"
#include "core/RuntimeError.h"
#include "desktop/RandomActionsChecks.h"
#include "desktop/RandomActionsPorts.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/services/QtPorts.h"
#include "desktop/services/QtValues.h"
#include "desktop/support/Icons.h"
#include "support/TempFolder.h"

namespace korva::desktop::random {

namespace {

constexpr int kMostClosings = 2000;

class Application final : public QApplication {
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}

  // Every command catches its own errors.
  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      Fail(std::string("an error left its command: ") + error.what());
    }
  }
};

// Lets one action after the other happen, in whatever event loop is going round.
class Driver : public QObject {
 public:
  Driver(World& world, Checks& checks, int actions) : world_(world), checks_(checks), actions_(actions) {
    for (const auto* table : {&InputActions(), &FileActions()}) {
      for (const Action& action : *table) {
        table_.insert(table_.end(), static_cast<std::size_t>(action.Weight), &action);
      }
    }
    Later(0);
  }

  bool Ends() const { return done_ >= actions_; }

 private:
  void Later(int milliseconds) {
    QTimer::singleShot(milliseconds, this, [this] { Tick(); });
  }

  void Tick() {
    StillAlive();
    Later(std::exchange(world_.Pause, 0));
    const int level = QThread::currentThread()->loopLevel();
    if (std::count(levels_.begin(), levels_.end(), level) > (LetsActionsIn() ? 1 : 0)) {
      world_.Pause = 1;
      return;
    }
    world_.AtOuterLoop = world_.Runs && levels_.empty() && level == 1;
    checks_.All();
    levels_.push_back(level);
    Ends() ? Close() : Act();
    levels_.pop_back();
    StayInTheFolder();
  }

  // The only command that listens to a person while it goes on without an event loop of its own.
  static bool LetsActionsIn() {
    const QWidget* front = QApplication::activeModalWidget();
    const auto* stop =
        front == nullptr ? nullptr : front->findChild<QWidget*>(QStringLiteral("cmdCancelImport"));
    return stop != nullptr && stop->isVisible();
  }

  void Act() {
    NextAction(++done_);
    if (!AnswerDialog(world_)) {
      world_.Random.Pick(table_)->Do(world_);
    }
  }

  void Close() {
    NextAction(++closings_);
    if (closings_ > kMostClosings) {
      Fail("the main window cannot be closed");
    }
    world_.Pause = 5;
    CloseFront(world_);
  }

  // A person may send projects anywhere, this driver nowhere else.
  void StayInTheFolder() {
    if (world_.State != nullptr && !world_.State->Preferences.DataPath.starts_with(world_.Folder)) {
      world_.State->Preferences.DataPath = world_.Projects();
    }
  }

  World& world_;
  Checks& checks_;
  int actions_;
  int done_ = 0;
  int closings_ = 0;
  std::vector<const Action*> table_;
  std::vector<int> levels_;  // of the event loops in which actions are going on
};

MachineFolders FoldersIn(const std::string& folder) {
  MachineFolders machine;
  machine.AppPath = folder + "/program";
  machine.Examples = folder + "/examples";
#ifdef KORVA_BUILT_DOCS
  machine.Docs = KORVA_BUILT_DOCS;
#endif
  machine.Documents = folder + "/Documents";
  machine.Desktop = folder + "/Desktop";
  machine.DataHome = folder + "/data";
  machine.ConfigHome = folder + "/config";
  machine.StateHome = machine.DataHome + "/korva-strond/sessions";
  machine.SystemTemp = folder + "/temp";
  for (const std::string& path : {machine.AppPath, machine.Documents, machine.SystemTemp}) {
    std::filesystem::create_directories(path);
  }
  return machine;
}

// One run of the program, from its start to its end.
class Program {
 public:
  explicit Program(World& world) : world_(world), printer_(world), programs_(world), fetches_(world) {}

  void Run(Checks& checks) {
    StartUp(korva_, FoldersIn(world_.Folder), [] { return std::string("Arial"); });
    world_.Settings = korva_.Places.IniFile;
    world_.State = &korva_;
    world_.Crashes = false;
    checks.Begun();
    {
      frmMain main(korva_, ports_, printer_);
      QDir::setCurrent(QString::fromStdString(world_.Projects()));
      world_.Main = &main;
      if (main.AcceptDisclaimer()) {
        main.CheckForUpdates();
        main.Begin(world_.Random.Chance(30) ? SomeFile(world_) : std::string());
        world_.Runs = true;
        QApplication::exec();
        world_.Runs = false;
        if (world_.Crashes) {
          checks.Crashed(world_.ToldBefore);
        } else if (!main.isVisible()) {
          checks.GivenUp();
        }
      }
      Remove();
      world_.Main = nullptr;
    }
    world_.State = nullptr;
  }

 private:
  // The windows that delete themselves go before what they work on.
  static void Remove() {
    QList<QPointer<QWidget>> windows;  // some go with others
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->testAttribute(Qt::WA_DeleteOnClose)) {
        windows << window;
      }
    }
    for (const auto& window : windows) {
      delete window;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  World& world_;
  Korva korva_;
  QtMessages messages_;
  QtFileChoice files_;
  QtClipboard clipboard_;
  QtBusy busy_;
  SomePrinter printer_;
  SomePrograms programs_;
  SomeFetches fetches_;
  QtValues values_;
  Ports ports_{messages_, files_, clipboard_, programs_, busy_, programs_, printer_, fetches_, values_};
};

void TakeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (text.startsWith(QLatin1String("This plugin does not support")) ||
      text.startsWith(QLatin1String("inotify_add_watch("))) {
    return;  // the platform without a screen, and file dialogs over locked files
  }
  Note("the toolkit: " + text.toStdString());
  if (type == QtCriticalMsg || type == QtFatalMsg) {
    Fail("the toolkit: " + text.toStdString());
  }
}

// The screens that people have, by the seed.
void ChooseScreen(Dice& random, const std::string& folder) {
  struct Screen {
    int Width;
    int Height;
    const char* Scale;
  };
  static constexpr std::array<Screen, 3> kScreens = {
      {{1366, 768, "1"}, {1366, 768, "1.25"}, {1920, 1080, "2"}}};
  const Screen& screen = random.Pick(kScreens);
  const std::string file = folder + "/screen.json";
  std::ofstream(file) << R"({"screens": [{"name": "one", "x": 0, "y": 0, "width": )" << screen.Width
                      << R"(, "height": )" << screen.Height
                      << R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
  qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).c_str());
  qputenv("QT_SCALE_FACTOR", screen.Scale);
}

int Drive(int& argc, char** argv, std::uint64_t seed, int actions, bool tell) {
  BeginLog(seed, " --actions " + std::to_string(actions), tell);
  const TempFolder folder;
  World world(seed, folder / "work");
  std::filesystem::create_directory(world.Folder);
  for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
    qputenv(name, world.Folder.c_str());
  }
  qputenv("QT_HASH_SEED", "0");
  ChooseScreen(world.Random, world.Folder);
  PrepareFolders(world);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  Application application(argc, argv);
  qInstallMessageHandler(TakeMessage);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setStyle(QStringLiteral("Fusion"));
  InitResources();
  Checks checks(world);
  {
    Driver driver(world, checks, actions);
    int starts = 0;
    while (!driver.Ends()) {
      Note("start " + std::to_string(++starts));
      Program(world).Run(checks);
    }
  }
  Unlock(world);
  QDir::setCurrent(QStringLiteral("/"));
  std::puts("passed");
  return 0;
}

}  // namespace

}  // namespace korva::desktop::random

int main(int argc, char** argv) {
  std::uint64_t seed = std::random_device()();
  int actions = 400;
  bool tell = false;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--tell") {
      tell = true;
    } else if ((word == "--seed" || word == "--actions") && i + 1 < argc) {
      const unsigned long long value = std::strtoull(argv[++i], nullptr, 10);
      if (word == "--seed") {
        seed = value;
      } else {
        actions = static_cast<int>(value);
      }
    } else {
      std::fputs("usage: korva_random_actions [--seed N] [--actions N] [--tell]\n", stderr);
      return 2;
    }
  }
  return korva::desktop::random::Drive(argc, argv, seed, actions, tell);
}
