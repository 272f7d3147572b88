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

#include "commands/Calculate.h"
#include "commands/FileCommands.h"
#include "commands/PlanCommands.h"
#include "commands/SweepCommand.h"
#include "desktop/FormBench.h"
#include "desktop/core/frmMain.h"
#include "desktop/files/frmSet.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "desktop/graphs/frmStrondCalc.h"
#include "desktop/input/frmKORVADesc.h"
#include "desktop/input/frmKORVAParm.h"
#include "desktop/options/frmConvert.h"
#include "desktop/options/frmKORVAOpts.h"
#include "desktop/options/frmUnits.h"
#include "desktop/plan/SchematicView.h"
#include "desktop/plan/frmPicture.h"
#include "desktop/reports/frmPopUp.h"
#include "desktop/reports/frmResTxtPlt.h"
#include "desktop/services/frmDisclaimer.h"
#include "desktop/services/frmHelp.h"
#include "desktop/services/frmPath.h"
#include "desktop/services/frmPreview.h"
#include "desktop/services/frmResource.h"
#include "desktop/services/frmTextBrow.h"
#include "desktop/services/frmUpdate.h"
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

void SaveParameters(FormBench& bench) {
  auto* form = new frmKORVAParm(bench.Forms);
  auto& tabs = The<QTabWidget>(*form, "SSTab1");
  for (int tab = 0; tab < tabs.count(); ++tab) {
    tabs.setCurrentIndex(tab);
    Save(*form, QStringLiteral("frmKORVAParm-%1").arg(tabs.tabText(tab).toLower()));
  }
  delete form;
}

// Each loading condition; straight and angled crosscuts; rows A to D; slab cuts; few and many entries.
// The tab of the import while rows are written, and after a row that could not be taken.
void SaveCaseImport() {
  FormBench bench;
  frmKORVAOpts options(bench.Forms);
  const TempFolder cases;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(cases / "");
  The<QTabWidget>(options, "SSTab1").setCurrentIndex(1);
  The<QLineEdit>(options, "Text3").setText(QStringLiteral("999"));
  bench.Outside.Messages.Expect("This operation", MessageButtons::kYesNo, MessageAnswer::kYes);
  bench.Outside.Files.Expect(KORVA_WORKBOOKS "/cases.xlsx");
  QTimer::singleShot(0, &options, [&options] { Save(options, QStringLiteral("frmKORVAOpts-importing")); });
  Click(options, "cmdImport");
  Save(options, QStringLiteral("frmKORVAOpts-imported"));
  std::filesystem::current_path(before);
}

void SavePlans(FormBench& bench) {
  const auto save = [&bench](const QString& name, const char* example, auto change) {
    bench.State.ProjectFileName = example;
    FileOpen(bench.State, bench.Outside.Messages);
    change(bench.State);
    CalculateStabilityFactors(bench.State, bench.Outside.Messages);
    bench.State.PlotCaller = kPlanFromResults;
    QWidget opener;
    frmPicture* plan = frmPicture::Open(bench.Forms, opener);
    if (name.endsWith(QStringLiteral("capacity"))) {
      The<QAction>(*plan, "mnuPlotSetItem(2)").trigger();
    }
    Save(*plan, QStringLiteral("frmPicture-") + name);
    plan->close();
  };
  const auto asItIs = [](Korva&) {};
  save(QStringLiteral("development"), "development.KVL", asItIs);
  save(QStringLiteral("active"), "leave-rows-a-b.KVL", asItIs);
  save(QStringLiteral("one-side"), "metric-one-side-gob.KVL", asItIs);
  save(QStringLiteral("two-sides-capacity"), "two-side-gobs.KVL", asItIs);
  save(QStringLiteral("angled"), "angled-crosscuts.KVL", asItIs);
  save(QStringLiteral("bleeders"), "bleeder-rows-c-d.KVL",
       [](Korva& korva) { korva.Preferences.Options.PlotGobExtLoose = false; });
  save(QStringLiteral("slab-cuts"), "slab-cuts.KVL", [](Korva& korva) {
    korva.Preferences.Options.PlotGobExtLoose = true;
    korva.Stored.ProjectInput.XcutAngle = 70;
  });
  save(QStringLiteral("two-entries"), "development.KVL",
       [](Korva& korva) { korva.Stored.ProjectInput.NumberEntries = 2; });
  save(QStringLiteral("ten-entries"), "two-side-gobs.KVL", [](Korva& korva) {
    korva.Preferences.Options.PlotSingleXcutDims = false;
    Project& p = korva.Stored.ProjectInput;
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

std::unique_ptr<frmGraph> OpenGraph(FormBench& bench, GraphKind graph, OverburdenModel model) {
  auto job = PrepareSweep(bench.State, bench.Outside.Messages, graph, model);
  KeepSweep(bench.State, *job, RunSweepJob(*job, [](int, int) { return true; }));
  auto window = std::make_unique<frmGraph>(bench.Forms);
  window->GraphInit(graph);
  window->DrawCurve();
  window->show();
  QApplication::processEvents();
  return window;
}

// One, two and four curves, and the windows around them.
void SaveGraphs(FormBench& bench) {
  const auto open = [&bench](GraphKind graph, OverburdenModel model) {
    return OpenGraph(bench, graph, model);
  };
  Save(*open(kDepthGraph, kTraditionalModel), QStringLiteral("frmGraph-two"));
  const auto four = open(kXcutSpacingGraph, kComparedModels);
  The<QAction>(*four, "GraphOptionsItem(0)").trigger();
  Save(*four, QStringLiteral("frmGraph"));
  frmGraphOpt options(bench.Forms, *four);
  The<QRadioButton>(options, "Option1(1)").click();
  Save(options, QStringLiteral("frmGraphOpt"));
  frmStrondCalc progress(nullptr);
  progress.ShowStep(3, 7);
  Save(progress, QStringLiteral("frmStrondCalc"));
  bench.State.Stored.ProjectInput.LoadingCondition = PanelLoading{0};
  Save(*open(kEntryHeightGraph, kTraditionalModel), QStringLiteral("frmGraph-one"));
}

void SaveTextBrow(FormBench& bench) {
  const auto place = std::filesystem::temp_directory_path() / "korva-examples";  // the same in every picture
  std::error_code there;
  std::filesystem::create_directory_symlink(KORVA_EXAMPLES, place, there);
  bench.State.LastBrowseFolder = place.string();
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
  FileOpen(bench.State, bench.Outside.Messages);
  CalculateStabilityFactors(bench.State, bench.Outside.Messages);
  auto* form = new frmKORVAParm(bench.Forms);
  The<QTabWidget>(*form, "SSTab1").setCurrentIndex(2);
  Save(*form, QStringLiteral("tutorial-retreat"));
  delete form;
  bench.State.PlotCaller = kPlanFromResults;
  QWidget opener;
  frmPicture* plan = frmPicture::Open(bench.Forms, opener);
  The<QAction>(*plan, "mnuPlotSetItem(2)").trigger();
  Save(*plan, QStringLiteral("tutorial-plan"));
  plan->close();
  bench.State.Stored.ProjectInput.XcutSpacing = 80;
  bench.State.Stored.ProjectInput.BarrierFirstGob = 60;
  Save(*OpenGraph(bench, kFirstBarrierGraph, kTraditionalModel), QStringLiteral("tutorial-graph"));
}

// The start page and a topic; nothing where the documents were not built.
void SaveHelp(FormBench& bench) {
  bench.State.Places.Docs = KORVA_BUILT_DOCS "/";
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

void SaveAll() {
  FormBench bench;
  bench.State.Places.ProductFolder = bench.State.Preferences.DataPath =
      "/home/ann/Documents/MyFolvane/KORVA-STROND/";
  bench.State.Preferences.DisplayFont.Name = "Liberation Sans";
  frmMain main(bench.State, bench.Outside.All, bench.Pictures);
  FileNew(bench.State, true, true);
  main.Refresh();
  Save(main, QStringLiteral("frmMain-start"));
  QDir::setCurrent(QStringLiteral(KORVA_EXAMPLES));
  bench.State.ProjectFileName = "two-side-gobs.KVL";
  FileOpen(bench.State, bench.Outside.Messages);
  bench.State.ProjectFileName = "/home/ann/mine/two-side-gobs.KVL";
  CalculateStabilityFactors(bench.State, bench.Outside.Messages);
  main.Refresh();
  Save(main, QStringLiteral("frmMain"));
  bench.State.Stored.ProjectInput.DepthCover += 100;
  bench.State.ProjectSaved = false;
  main.Refresh();
  Save(main, QStringLiteral("frmMain-changed"));
  SaveParameters(bench);
  SaveSchematics();
  frmPopUp popUp(bench.State.WarningText);
  Save(popUp, QStringLiteral("frmPopUp"));
  bench.State.WarningText.clear();
  Save(*new frmResTxtPlt(bench.Forms, nullptr), QStringLiteral("frmResTxtPlt"));
  frmPreview preview(bench.Forms);
  Save(preview, QStringLiteral("frmPreview-text"));
  The<QTabWidget>(preview, "tabPages").setCurrentIndex(1);
  Save(preview, QStringLiteral("frmPreview"));
  frmKORVADesc description(bench.Forms);
  Save(description, QStringLiteral("frmKORVADesc"));
  frmSet settings(bench.Forms);
  Save(settings, QStringLiteral("frmSet"));
  frmResource resources(bench.Forms);
  Save(resources, QStringLiteral("frmResource"));
  SaveHelp(bench);
  frmDisclaimer disclaimer(bench.Forms);
  Save(disclaimer, QStringLiteral("frmDisclaimer"));
  bench.State.Places.LastPath = "/usr/";
  frmPath path(bench.Forms);
  Save(path, QStringLiteral("frmPath"));
  SaveTextBrow(bench);
  const TempFolder solverFiles;
  bench.State.Places.TempRoot = solverFiles / "";
  frmKORVAOpts options(bench.Forms);
  auto& tabs = The<QTabWidget>(options, "SSTab1");
  for (int tab = 0; tab < tabs.count(); ++tab) {
    tabs.setCurrentIndex(tab);
    Save(options, QStringLiteral("frmKORVAOpts-%1").arg(tab));
  }
  SaveCaseImport();
  bench.State.Updates = BuiltInUpdateSource();
  frmUpdate updates(bench.Forms);
  Save(updates, QStringLiteral("frmUpdate"));
  frmUnits units(bench.Forms);
  Save(units, QStringLiteral("frmUnits"));
  frmConvert convert(bench.Forms);
  Save(convert, QStringLiteral("frmConvert"));
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
