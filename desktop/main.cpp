// The desktop program.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QStandardPaths>
#include <cstdio>
#include <functional>
#include <string_view>

#include "commands/Attempt.h"
#include "commands/StartUp.h"
#include "core/ClassifyError.h"
#include "core/FontNames.h"
#include "core/Version.h"
#include "desktop/core/frmMain.h"
#include "desktop/services/LateFetch.h"
#include "desktop/services/QtPorts.h"
#include "desktop/services/QtPrinter.h"
#include "desktop/services/QtValues.h"
#include "desktop/support/EndSignals.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Icons.h"

namespace korva::desktop {

namespace {

constexpr const char* kUsage =
    "usage: korva-strond [FILE]\n"
    "\n"
    "Judges the stability of coal pillars in room-and-pillar retreat mining. FILE is a project to open.\n"
    "\n"
    "  --help     show this text\n"
    "  --version  show the version\n";

// The last net for run-time errors that no command has caught.
class Application final : public QApplication {
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
      Report(error);
    } catch (const std::bad_alloc&) {
      Report(RuntimeError(ErrorNumber::kOutOfMemory));
    } catch (const std::exception& error) {
      Report(RuntimeError(ErrorNumber::kInvalidCall, error.what()));
    }
    return true;
  }

  std::function<void(const RuntimeError&)> Report = [](const RuntimeError&) {};
};

// The first of the usual fonts that the screen has, by its own name or by that of its free twin.
std::string BestFont() {
  const QStringList families = QFontDatabase::families();
  for (const auto& [name, twin] : {std::pair{"Arial", kSansFont},
                                   {kCourierFont, kMonoFont},
                                   {"System", "System"},
                                   {"Terminal", "Terminal"}}) {
    if (families.contains(QLatin1String(name)) || families.contains(QLatin1String(twin))) {
      return name;
    }
  }
  return families.isEmpty() ? std::string() : families.constFirst().toStdString();
}

// Folders of the user that the environment names have to be full names; others are as if they were not named.
// The current folder changes at start, so that they would change with it.
void DropRelativeFolders() {
  for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
    if (QDir::isRelativePath(qEnvironmentVariable(name))) {
      qunsetenv(name);
    }
  }
}

// A folder of what comes with the program: beside an installed program, or in the folders above one that was
// just built.
QString ShippedFolder(const QString& programFolder, const QString& name) {
  QDir folder(programFolder);
  QString installed = folder.filePath(QStringLiteral("../share/korva-strond/") + name);
  if (QFileInfo(installed).isDir()) {
    return installed;
  }
  static constexpr int kBuildTreeDepth = 4;
  for (int level = 0; level < kBuildTreeDepth; ++level) {
    QString built = folder.filePath(name);
    if (QFileInfo(built).isDir()) {
      return built;
    }
    if (!folder.cdUp()) {
      break;
    }
  }
  return {};
}

MachineFolders FoldersOfThisMachine() {
  const auto place = [](QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location).toStdString();
  };
  const QString program = QCoreApplication::applicationDirPath();
  MachineFolders machine;
  machine.AppPath = program.toStdString();
  machine.Examples = ShippedFolder(program, QStringLiteral("examples")).toStdString();
  machine.Docs = ShippedFolder(program, QStringLiteral("docs")).toStdString();
  machine.Documents = place(QStandardPaths::DocumentsLocation);
  machine.Desktop = place(QStandardPaths::DesktopLocation);
  machine.DataHome = place(QStandardPaths::GenericDataLocation);
  machine.ConfigHome = place(QStandardPaths::GenericConfigLocation);
  machine.StateHome = machine.DataHome + "/korva-strond/sessions";
  machine.SystemTemp = place(QStandardPaths::TempLocation);
  return machine;
}

// The whole line is one file name, without double quotes unless it names a file with them: removing those
// would open another one.
std::string FileOfCall(const QStringList& arguments) {
  QString line = arguments.mid(1).join(QLatin1Char(' '));
  if (!QFileInfo::exists(line)) {
    line.remove(QLatin1Char('"'));
  }
  return line.isEmpty() ? std::string() : QFileInfo(line).absoluteFilePath().toStdString();
}

// Answers what needs no window; false to go on.
bool AnsweredAtOnce(int argc, char** argv) {
  const std::string_view word = argc == 2 ? argv[1] : "";
  if (word == "--help" || word == "-h") {
    return std::fputs(kUsage, stdout) >= 0;
  }
  if (word == "--version") {
    return std::printf("korva-strond %s\n", ProgramVersionText(true).c_str()) >= 0;
  }
  return false;
}

int RunProgram(Application& application) {
  Korva korva;
  QtMessages messages;
  QtFileChoice files;
  QtClipboard clipboard;
  QtPrograms programs;
  QtBusy busy;
  QtDocuments documents;
  QtPrinter printer;
  LateFetch fetches;
  QtValues values;
  Ports ports{messages, files, clipboard, programs, busy, documents, printer, fetches, values};
  application.Report = [&](const RuntimeError& error) { ClassifyError(korva, messages, error, true); };

  const std::string file = FileOfCall(QCoreApplication::arguments());
  StartUp(korva, FoldersOfThisMachine(), BestFont);
  frmMain main(korva, ports, printer);
  const EndSignals ends([&main] { main.KeepWork(); });
  QDir::setCurrent(FromUtf8(StartFolder(korva)));
  if (!main.AcceptDisclaimer()) {
    return 0;
  }
  main.CheckForUpdates();
  main.Begin(file);
  return QApplication::exec();
}

}  // namespace

}  // namespace korva::desktop

int main(int argc, char** argv) {
  using namespace korva::desktop;
  if (AnsweredAtOnce(argc, argv)) {
    return 0;
  }
  DropRelativeFolders();
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  Application application(argc, argv);
  QApplication::setApplicationName(FromUtf8(korva::ProgramFile));
  QApplication::setDesktopFileName(FromUtf8(korva::ProgramFile));
  QApplication::setQuitOnLastWindowClosed(false);
  InitResources();
  QApplication::setWindowIcon(ProgramIcon());
  return RunProgram(application);
}
