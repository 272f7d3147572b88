#include "desktop/core/MainMenus.h"

#include <QMainWindow>
#include <QMenu>
#include <QToolButton>
#include <span>

#include "desktop/support/FormTools.h"
#include "desktop/support/Icons.h"
#include "desktop/support/PathLabel.h"

namespace korva::desktop {

namespace {

// An item of a menu; an empty caption is a separator.
struct ItemRow {
  const char* Caption;
  QKeySequence Shortcut = {};
};

QList<ItemRow> FileItems() {
  return {{"&New", QKeySequence::New},
          {"&Open...", QKeySequence::Open},
          {"&Save ", QKeySequence::Save},
          {"Save &As...", Qt::CTRL | Qt::SHIFT | Qt::Key_S},
          {""},
          {"&Import VOSK Project..."},
          {""},
          {"Printer Set&up..."},
          {"&Print", QKeySequence::Print},
          {"Print Pre&view..."},
          {""},
          {"&View Source Files..."},
          {""},
          {"E&xit", Qt::CTRL | Qt::Key_Q}};
}

QList<ItemRow> EditItems() {
  return {{"Project &Description...", Qt::CTRL | Qt::Key_D},
          {"Project &Parameters...", Qt::CTRL | Qt::Key_E}};
}

QList<ItemRow> GraphItems() {
  return {{"SF vs Entry Height"},      {"SF vs Depth of Cover"},          {"SF vs Crosscut Angle"},
          {"SF vs Crosscut Spacing"},  {"SFBAR1 vs First Barrier Width"}, {"SFBAR2 vs Second Barrier Width"},
          {"SFBAR1 vs Depth of Cover"}};
}

QList<ItemRow> UtilItems() {
  return {{"&Settings..."},
          {"&Options..."},
          {"&Unit Conversion..."},
          {"&File Conversion..."},
          {""},
          {"&Clear History Window"},
          {kCloseHistoryCaption},
          {"Co&py History &Window"}};
}

QList<ItemRow> HelpItems() {
  return {{"Help &Contents..."},      {"Help &Index..."},
          {"Help in &PDF format..."}, {""},
          {"&Resource Files..."},     {""},
          {"&Disclaimer..."},         {""},
          {"Program Updates..."},     {""},
          {"&About the Program..."}};
}

constexpr int kRecentSeparator = 0;

struct ToolButton {
  const char* ToolTip;
  const char* Image;
  MainMenus::Command MainMenus::Commands::*Menu;
  int Index;
};
// The third one names a separator, so it only refreshes the menus.
constexpr std::array<ToolButton, 5> kToolButtons = {
    {{"Open Data File", "open", &MainMenus::Commands::File, kOpen},
     {"Save Data File", "save", &MainMenus::Commands::File, kSave},
     {"Print Data File", "print", &MainMenus::Commands::File, kPrintSeparator},
     {"Edit Description", "description", &MainMenus::Commands::Edit, kDescription},
     {"Edit Pillar Data", "parameters", &MainMenus::Commands::Edit, kParameters}}};

// Adds a command to `menu`, or a separator for an empty caption.
QAction* AddItem(QMenu& menu, const QString& name, const ItemRow& row, const std::function<void()>& command) {
  QAction* action = nullptr;
  if (*row.Caption == '\0') {
    action = menu.addSeparator();
  } else {
    action = menu.addAction(QLatin1String(row.Caption));
    action->setShortcut(row.Shortcut);
    action->setMenuRole(QAction::NoRole);
    QObject::connect(action, &QAction::triggered, action, command);
  }
  action->setObjectName(name);
  return action;
}

}  // namespace

MainMenus::MainMenus(QMainWindow& window, const Commands& commands) {
  QMenuBar& bar = *window.menuBar();
  const auto fill = [this](QMenu& menu, const char* array, const QList<ItemRow>& rows,
                           const Command& command) {
    for (int i = 0; i < rows.size(); ++i) {
      const QString name = IndexedName(array, i);
      items_[name] = AddItem(menu, name, rows[i], [command, i] { command(i); });
    }
  };
  fileMenu_ = AddMenu(bar, "mnuFile", "&File");
  fill(*fileMenu_, "mnuFileItem", FileItems(), commands.File);
  for (int i = kRecentSeparator; i <= kMostRecentFiles; ++i) {
    const QString name = IndexedName("mnuFileArray", i);
    items_[name] = AddItem(*fileMenu_, name, {i == kRecentSeparator ? "" : " "},
                           [command = commands.Recent, i] { command(i); });
    items_[name]->setVisible(false);
  }
  fill(*AddMenu(bar, "mnuEdit", "&Input"), "mnuEditItem", EditItems(), commands.Edit);

  QMenu* output = AddMenu(bar, "mnuCalc", "&Output");
  fill(*output, "mnuCalcItem", {{"Stability Factors...", Qt::Key_F5}, {""}}, commands.Calc);
  QMenu* graph = output->addMenu(QStringLiteral("Graph"));
  graph->setObjectName(QStringLiteral("mnuCalcItem(2)"));
  graph->menuAction()->setObjectName(QStringLiteral("mnuCalcItem(2)"));
  fill(*graph, "mnuCalcGrafItem", GraphItems(), commands.Graph);

  fill(*AddMenu(bar, "mnuUtil", "&Utilities"), "mnuUtilItem", UtilItems(), commands.Util);
  fill(*AddMenu(bar, "mnuHelp", "&Help"), "mnuHelpItem", HelpItems(), commands.Help);
  AddToolBar(window, commands);
}

void MainMenus::AddToolBar(QMainWindow& window, const Commands& commands) {
  toolBar_ = window.addToolBar(QStringLiteral("Toolbar"));
  toolBar_->setObjectName(QStringLiteral("Toolbar1"));
  toolBar_->setMovable(false);
  toolBar_->setContextMenuPolicy(Qt::PreventContextMenu);
  for (std::size_t i = 0; i < kToolButtons.size(); ++i) {
    const ToolButton& button = kToolButtons[i];
    QAction* action = toolBar_->addAction(QLatin1String(button.ToolTip));
    const QString name = IndexedName("Toolbar1", static_cast<int>(i) + 1);
    action->setObjectName(name);
    QObject::connect(action, &QAction::triggered, toolBar_,
                     [command = commands.*button.Menu, index = button.Index] { command(index); });
    toolBar_->widgetForAction(action)->setObjectName(name);
  }
  PaintImages(window.palette());
}

void MainMenus::PaintImages(const QPalette& palette) {
  const auto actions = toolBar_->actions();
  for (std::size_t i = 0; i < kToolButtons.size(); ++i) {
    actions[static_cast<qsizetype>(i)]->setIcon(ThemedIcon(QLatin1String(kToolButtons[i].Image), palette));
  }
}

QAction& MainMenus::Item(const char* array, int index) const {
  return *items_.at(IndexedName(array, index));
}

void MainMenus::ShowRecentFiles(const IndexedArray<std::string, 1, kMostRecentFiles>& captions) {
  bool any = false;
  for (int i = 1; i <= kMostRecentFiles; ++i) {
    QAction& item = Item("mnuFileArray", i);
    CaptionItem(*fileMenu_, item, FromUtf8(captions[i]));
    item.setVisible(!captions[i].empty());
    any = any || !captions[i].empty();
  }
  Item("mnuFileArray", kRecentSeparator).setVisible(any);
}

}  // namespace korva::desktop
