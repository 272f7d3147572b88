#include "desktop/RandomActionsChecks.h"

#include <QApplication>
#include <QDateTime>
#include <QLabel>
#include <QRegularExpression>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

#include "core/Description.h"
#include "core/Encoding.h"
#include "core/FilePaths.h"
#include "core/RuntimeError.h"
#include "desktop/input/frmKORVADesc.h"
#include "desktop/input/frmKORVAParm.h"
#include "files/ProjectFile.h"

namespace korva::desktop::random {

namespace {

namespace fs = std::filesystem;

constexpr double kCopyWithin = 3;       // seconds; the program needs one
constexpr double kLongestStep = 0.1;    // more does not count: the event loop was away
constexpr QMargins kSlack(0, 0, 3, 3);  // scaled sizes are rounded, and the toolkit guesses frames
constexpr int kMostStuck = 400;

// A project as its file holds it, but for the value without a meaning; nothing if no file can.
std::optional<std::string> TextOf(StoredProject project) {
  try {
    project.ProjectInput.LoadingConditionAux = 0;
    NormalizeDescription(project);
    return ComposeProject(project);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// The same of a file's text.
std::optional<std::string> TextOfFile(const std::string& text, UnitSystem units) {
  try {
    const auto format = DetectProjectFormat(text, "");
    if (!format) {
      return std::nullopt;
    }
    StoredProject project;
    project.ProjectUnits = units;
    project.ProjectInput = EmptyProject(units);
    std::vector<FileNotice> notices;
    ReadProject(text, "", *format, project, notices);
    return TextOf(project);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// A copy of unsaved work ends in the project's name.
constexpr std::string_view kNameMark = "##Recovery##";

// The projects in a folder; copies of unsaved work are among them, with and without their names.
std::set<std::string> ProjectsIn(const std::string& folder) {
  std::set<std::string> projects;
  std::error_code failure;
  for (const auto& entry : fs::directory_iterator(folder, failure)) {
    if (!entry.is_regular_file(failure)) {
      continue;
    }
    const std::string text = TextFromFileBytes(Read(Utf8Of(entry.path())));
    const auto mark = text.rfind(kNameMark);
    if (const auto project = TextOfFile(text.substr(0, mark), kEnglish)) {
      projects.insert(*project);
      if (mark != std::string::npos) {
        projects.insert(*project + text.substr(mark, text.find('\r', mark) - mark));
      }
    }
  }
  return projects;
}

// The projects that the program's sessions keep.
std::set<std::string> KeptProjects(const Korva& korva) {
  return ProjectsIn(korva.Places.StateFolder);
}

std::string Place(const QRect& rect) {
  return std::to_string(rect.x()) + "," + std::to_string(rect.y()) + " " + std::to_string(rect.width()) +
         " x " + std::to_string(rect.height());
}

bool HoldsNoNumber(const QString& text) {
  static const QRegularExpression word(QStringLiteral("(^|[^a-z])[-+]?(inf|nan)($|[^a-z])"),
                                       QRegularExpression::CaseInsensitiveOption);
  return word.match(text).hasMatch();
}

}  // namespace

void Checks::WindowsAreOnTheScreen() const {
  for (const QWidget* window : VisibleWindows()) {
    QRect frame = window->frameGeometry();
    const QRect room = window->screen()->availableGeometry().marginsAdded(kSlack);
    if (window->property(kPlacedProperty).toBool() && room.contains(frame.topLeft())) {
      frame.moveTopLeft(room.topLeft());
    }
    if (!room.contains(frame) && !window->objectName().isEmpty()) {  // the toolkit's own have no names
      Fail("the window " + window->objectName().toStdString() + " (" + window->metaObject()->className() +
           ") is off the screen: " + Place(frame) + " on " + Place(room));
    }
  }
}

// A window, a box or a menu that takes input, sooner or later.
void Checks::SomebodyCanGoOn() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  const bool canGoOn = std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && window->isEnabled();
  });
  stuck_ = canGoOn ? 0 : stuck_ + 1;
  if (stuck_ > kMostStuck) {
    Fail("no window takes input any more");
  }
  if (world_.AtOuterLoop && QApplication::activeModalWidget() == nullptr &&
      QApplication::overrideCursor() != nullptr) {
    Fail("the busy pointer was left on");
  }
}

void Checks::FactorsAreNumbers() const {
  const Korva& korva = *world_.State;
  for (int page = 1; page <= OutputPages::kLast; ++page) {
    if (HoldsNoNumber(QString::fromStdString(korva.OutBuf[page]))) {
      Fail("page " + std::to_string(page) + " holds no number:\n" + korva.OutBuf[page]);
    }
  }
  for (int curve = 0; curve <= korva.Sweep.CurveCount; ++curve) {
    const auto& points = korva.Sweep.GraphData[curve];
    if (!std::all_of(points.begin(), points.end(), [](float value) { return std::isfinite(value); })) {
      Fail("a curve of the graph holds no number");
    }
  }
  if (world_.Main == nullptr || !world_.Main->isVisible()) {
    return;
  }
  for (const QLabel* label : world_.Main->findChildren<QLabel*>()) {
    const QString name = label->objectName();
    if (name != QLatin1String("lblCardTitle") && !name.endsWith(QLatin1String("File")) &&
        HoldsNoNumber(label->text())) {
      Fail("the main window shows no number: " + label->text().toStdString());
    }
  }
}

// Right after it was read or written; later others may have changed the file.
void Checks::TheFileIsTheProject() {
  const Korva& korva = *world_.State;
  if (!korva.ProjectSaved || korva.ProjectEmpty || korva.OpenFile.Bytes.empty() ||
      !korva.OpenFile.ReadWhole || korva.OpenFile.Bytes == knownBytes_) {
    return;
  }
  knownBytes_ = korva.OpenFile.Bytes;
  const auto file = TextOfFile(TextFromFileBytes(knownBytes_), korva.Preferences.DefaultUnits);
  const auto project = TextOf(korva.Stored);
  if (project && file != project) {
    Fail("the saved project's file " + korva.OpenFile.Name + " holds another one:\n" + file.value_or("none") +
         "\nthan the program:\n" + *project);
  }
}

// Time goes on only while the event loop goes round, as the program's own timers see it.
double Checks::TimeOfLoop() {
  const qint64 now = QDateTime::currentMSecsSinceEpoch();
  time_ += std::clamp(static_cast<double>(now - lastTick_.value_or(now)) / 1000, 0.0, kLongestStep);
  lastTick_ = now;
  return time_;
}

// What is not saved of the project: what a form holds, or the project itself.
std::optional<std::string> Checks::Unsaved() const {
  const Korva& korva = *world_.State;
  std::optional<StoredProject> draft;
  bool described = false;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (const auto* form = dynamic_cast<const frmKORVADesc*>(window); form != nullptr && form->isVisible()) {
      described = true;
      draft = form->Draft();
    }
    if (const auto* form = qobject_cast<const frmKORVAParm*>(window); form != nullptr && !described) {
      draft = form->Draft();
    }
  }
  return draft                                      ? TextOf(*draft)
         : korva.ProjectSaved || korva.ProjectEmpty ? std::nullopt
                                                    : TextOf(korva.Stored);
}

// One of the states of the last seconds stands in the copy, under the project's own name.
void Checks::UnsavedWorkIsKept() {
  const Korva& korva = *world_.State;
  Moment moment{TimeOfLoop(), Unsaved()};
  if (moment.Kept) {
    moment.Kept->append(kNameMark).append(korva.ProjectOwnName);
  }
  if (moments_.empty() || moments_.back().Kept != moment.Kept) {
    moments_.push_back(moment);
  }
  // The first one holds at the beginning of the time that counts.
  while (moments_.size() > 1 && moments_[1].Time < moment.Time - kCopyWithin) {
    moments_.pop_front();
  }
  const bool counts = std::all_of(moments_.begin(), moments_.end(), [](const Moment& m) { return m.Kept; });
  if (!counts || moments_.front().Time > moment.Time - kCopyWithin) {
    return;
  }
  const auto kept = KeptProjects(korva);
  if (std::none_of(moments_.begin(), moments_.end(),
                   [&](const Moment& m) { return kept.contains(*m.Kept); })) {
    Fail("no copy is kept of the unsaved project:\n" + *moment.Kept);
  }
}

// Work that is not open any more was saved, or a copy of it is there.
void Checks::NothingIsLost() {
  const Korva& korva = *world_.State;
  const auto owed = std::exchange(owed_, std::nullopt);
  if (!korva.ProjectSaved && !korva.ProjectEmpty) {
    owed_ = TextOf(korva.Stored);
  } else if (owed && TextOf(korva.Stored) != owed && !KeptProjects(korva).contains(*owed) &&
             !ProjectsIn(world_.Projects()).contains(*owed)) {
    Fail("unsaved work is gone:\n" + *owed);
  }
  // What the program was ended over by force is there until it begins anew, and then it is open or kept.
  if (crashed_ && TextOf(korva.Stored) != crashed_ && !KeptProjects(korva).contains(*crashed_)) {
    Fail("what was kept at a crash is gone:\n" + *crashed_);
  }
  if (world_.Main->isVisible() && QApplication::activeModalWidget() == nullptr) {
    crashed_.reset();
  }
}

void Checks::GivenUp() {
  owed_.reset();
}

void Checks::Crashed(bool toldBefore) {
  owed_.reset();
  const auto unsaved = Unsaved();
  if (unsaved && KeptProjects(*world_.State).contains(*unsaved)) {
    crashed_ = unsaved;
  } else if (unsaved && toldBefore) {
    Fail("the program kept no copy at its end:\n" + *unsaved);
  }
}

void Checks::Begun() {
  moments_.clear();
  knownBytes_.clear();
  stuck_ = 0;
}

void Checks::All() {
  WindowsAreOnTheScreen();
  if (world_.Main == nullptr) {
    return;
  }
  SomebodyCanGoOn();
  FactorsAreNumbers();
  TheFileIsTheProject();
  UnsavedWorkIsKept();
  NothingIsLost();
}

}  // namespace korva::desktop::random
