// Draws every form into picture files, for documents and for people who look at them:
// korva_pictures FOLDER [dark]. QT_SCALE_FACTOR sets the scale.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QTabWidget>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "desktop/AllForms.h"
#include "desktop/plan/SchematicView.h"
#include "desktop/support/Icons.h"
#include "desktop/support/Theme.h"
#include "plan/PanelPicture.h"
#include "services/UpdateRules.h"
#include "support/TempFolder.h"

namespace korva::desktop {
namespace {

QDir folder;

void Save(QWidget& form, const QString& name) {
  form.show();
  constexpr int kRounds = 3;  // what a change of size sets off is done, too
  for (int round = 0; round < kRounds; ++round) {
    QApplication::processEvents();
  }
  if (!form.grab().save(folder.filePath(name + QStringLiteral(".png")))) {
    std::fprintf(stderr, "cannot write %s\n", qPrintable(name));
  }
}

// The tab of the import while rows are written, and after a row that could not be taken.
void SaveCaseImport() {
  FormBench bench;
  frmKORVAOpts options(bench.Forms);
  const TempFolder cases;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(cases / "");
  The<QTabWidget>(options, "SSTab1").setCurrentIndex(1);
  The<QLineEdit>(options, "Text3").setText(QStringLiteral("999"));
  bench.Ports.Messages.Expect("This operation", MessageButtons::kYesNo, MessageAnswer::kYes);
  bench.Ports.Files.Expect(KORVA_WORKBOOKS "/cases.xlsx");
  QTimer::singleShot(0, &options, [&options] { Save(options, QStringLiteral("frmKORVAOpts-importing")); });
  Click(options, "cmdImport");
  Save(options, QStringLiteral("frmKORVAOpts-imported"));
  std::filesystem::current_path(before);
}

frmPicture* OpenPlan(FormBench& bench, QWidget& opener) {
  CalculateStabilityFactors(bench.State, bench.Ports.Messages);
  return frmPicture::Open(bench.Forms, opener, kPlanFromResults);
}

// Each loading condition; straight and angled crosscuts; rows A to D; slab cuts; few and many entries.
void SavePlans(FormBench& bench) {
  const auto save = [&bench](const char* example, const char* name, auto change) {
    bench.State.ProjectFileName = example + std::string(".KVL");
    FileOpen(bench.State, bench.Ports.Messages);
    change(bench.State.Stored.ProjectInput);
    QWidget opener;
    frmPicture* plan = OpenPlan(bench, opener);
    Save(*plan, QStringLiteral("frmPicture-") + QLatin1String(name));
    plan->close();
  };
  for (const char* example :
       {"development", "leave-rows-a-b", "metric-one-side-gob", "two-side-gobs", "angled-crosscuts"}) {
    save(example, example, [](Project&) {});
  }
  save("slab-cuts", "slab-cuts", [](Project& p) { p.XcutAngle = 70; });
  save("development", "two-entries", [](Project& p) { p.NumberEntries = 2; });
  bench.State.Preferences.Options.PlotGobExtLoose = false;
  save("bleeder-rows-c-d", "bleeder-rows-c-d", [](Project&) {});
  bench.State.Preferences.Options.PlotGobExtLoose = true;
  bench.State.Preferences.Options.PlotSingleXcutDims = false;
  save("two-side-gobs", "ten-entries", [](Project& p) {
    p.NumberEntries = 10;
    p.XcutAngle = 60;
    p.XcutCenters[9] = 95;
    p.RowA = p.RowB = p.RowC = p.RowD = 1;
    p.WidthRowC = p.WidthRowD = 50;
  });
}

void SaveSchematics() {
  constexpr int kAcross = 6;
  SchematicView sample(0);
  const QSize size = sample.minimumSizeHint();
  QWidget sheet;
  sheet.resize(size.width() * kAcross, size.height() * ((kPanelPictures + kAcross - 1) / kAcross));
  for (int i = 0; i < kPanelPictures; ++i) {
    auto* picture = new SchematicView(i, &sheet);
    picture->setGeometry(i % kAcross * size.width(), i / kAcross * size.height(), size.width(),
                         size.height());
  }
  Save(sheet, QStringLiteral("schematics"));
}

// One, two and four curves, and the windows around them.
void SaveGraphs(FormBench& bench) {
  Save(*OpenGraph(bench, kDepthGraph, kTraditionalModel), QStringLiteral("frmGraph-two"));
  const auto four = OpenGraph(bench, kXcutSpacingGraph, kComparedModels);
  The<QAction>(*four, "GraphOptionsItem(0)").trigger();
  Save(*four, QStringLiteral("frmGraph"));
  frmGraphOpt options(bench.Forms, *four);
  The<QRadioButton>(options, "Option1(1)").click();
  Save(options, QStringLiteral("frmGraphOpt"));
  frmStrondCalc progress(nullptr);
  progress.ShowStep(3, 7);
  Save(progress, QStringLiteral("frmStrondCalc"));
  bench.State.Stored.ProjectInput.LoadingCondition = PanelLoading{0};
  Save(*OpenGraph(bench, kEntryHeightGraph, kTraditionalModel), QStringLiteral("frmGraph-one"));
}

void SaveTextBrow(FormBench& bench) {
  const auto place = std::filesystem::temp_directory_path() / "korva-examples";  // the same in every picture
  std::error_code there;
  std::filesystem::create_directory_symlink(KORVA_EXAMPLES, place, there);
  bench.State.LastBrowseFolder = Utf8Of(place);
  bench.State.Preferences.TextBrowse.BrowseFont.Name = "Liberation Sans";
  frmTextBrow viewer(bench.Forms);
  auto& files = The<QListView>(viewer, "File1");
  files.setCurrentIndex(files.model()->index(1, 0));
  viewer.show();
  QTest::keyClick(&files, Qt::Key_Return);
  Save(viewer, QStringLiteral("frmTextBrow"));
  Click(viewer, "Check1");
  Save(viewer, QStringLiteral("frmTextBrow-external"));
  std::filesystem::remove(place, there);
}

// The panel of the tutorial: its retreat tab, the graph of its first barrier, its plan.
void SaveTutorial() {
  FormBench bench;
  bench.State.ProjectFileName = "tutorial.KVL";
  FileOpen(bench.State, bench.Ports.Messages);
  frmKORVAParm form(bench.Forms);
  The<QTabWidget>(form, "SSTab1").setCurrentIndex(2);
  Save(form, QStringLiteral("tutorial-retreat"));
  QWidget opener;
  frmPicture* plan = OpenPlan(bench, opener);
  The<QAction>(*plan, "mnuPlotSetItem(2)").trigger();
  Save(*plan, QStringLiteral("tutorial-plan"));
  plan->close();
  bench.State.Stored.ProjectInput.XcutSpacing = 80;
  bench.State.Stored.ProjectInput.BarrierFirstGob = 60;
  Save(*OpenGraph(bench, kFirstBarrierGraph, kTraditionalModel), QStringLiteral("tutorial-graph"));
}

// The start page and a topic; nothing where the documents were not built.
void SaveHelp(FormBench& bench) {
  if (!QFileInfo::exists(QStringLiteral(KORVA_BUILT_DOCS "/korva-strond.qch"))) {
    return;
  }
  const auto help = frmHelp::Open(bench.Forms);
  help->ShowContents();
  Save(*help, QStringLiteral("frmHelp"));
  for (const char* topic :
       {"frmkorvaparm-txtdepthcover", "warnings-rules", "frmhelp", "theory-traditional"}) {
    help->ShowTopic({topic});
    Save(*help, QStringLiteral("frmHelp-") + QLatin1String(topic));
  }
  help->ShowIndex();
  Save(*help, QStringLiteral("frmHelp-index"));
}

// Every form, with each of its tabs in front.
void SaveForms(FormBench& bench) {
  const AllForms forms(bench);
  for (const auto& form : forms.List()) {
    const QString name = form->objectName();
    if (name == QLatin1String("frmMain")) {
      continue;  // has its own
    }
    auto* tabs = form->findChild<QTabWidget*>();
    Save(*form, name);
    for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab) {
      tabs->setCurrentIndex(tab);
      Save(*form, name + QLatin1Char('-') + tabs->tabText(tab).remove('&').section(' ', 0, 0).toLower());
    }
  }
}

void SaveAll() {
  FormBench bench;
  bench.State.Places.ProductFolder = bench.State.Preferences.DataPath =
      "/home/ann/Documents/MyFolvane/KORVA-STROND/";
  bench.State.Places.Docs = KORVA_BUILT_DOCS "/";
  bench.State.LastBrowseFolder = KORVA_EXAMPLES;
  bench.State.Preferences.DisplayFont.Name = "Liberation Sans";
  const TempFolder solverFiles;
  bench.State.Places.TempRoot = solverFiles / "";
  bench.State.Updates = BuiltInUpdateSource();
  QDir::setCurrent(QStringLiteral(KORVA_EXAMPLES));
  FileNew(bench.State);
  frmMain main(bench.State, bench.Ports.All, bench.Pictures);
  const auto saveMain = [&main](const char* name) {
    main.Refresh();
    Save(main, QLatin1String(name));
  };
  saveMain("frmMain-start");
  bench.State.ProjectFileName = "two-side-gobs.KVL";
  FileOpen(bench.State, bench.Ports.Messages);
  bench.State.ProjectFileName = "/home/ann/mine/two-side-gobs.KVL";
  CalculateStabilityFactors(bench.State, bench.Ports.Messages);
  saveMain("frmMain");
  bench.State.Stored.ProjectInput.DepthCover += 100;
  bench.State.ProjectSaved = false;
  saveMain("frmMain-changed");
  SaveForms(bench);
  SaveSchematics();
  SaveHelp(bench);
  SaveTextBrow(bench);
  SaveCaseImport();
  SaveGraphs(bench);
  SavePlans(bench);
  SaveTutorial();
}

}  // namespace
}  // namespace korva::desktop

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  const QApplication application(argc, argv);
  if (argc < 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::fputs("usage: korva_pictures FOLDER [dark]\n", stderr);
    return 2;
  }
  korva::desktop::folder = QDir(QString::fromLocal8Bit(argv[1]));
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setPalette(korva::desktop::ThemePalette(argc > 2));
  korva::desktop::InitResources();
  korva::desktop::SaveAll();
  return 0;
}
