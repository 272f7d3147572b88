// What the random actions work on, and the dice that they throw.
#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/Korva.h"
#include "desktop/RandomActionsLog.h"
#include "desktop/core/frmMain.h"

namespace korva::desktop::random {

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : numbers_(seed) {}

  int Between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(numbers_); }
  bool Chance(int percent) { return Between(1, 100) <= percent; }
  template <class List>
  const auto& Pick(const List& list) {
    return *std::next(std::begin(list), Between(0, static_cast<int>(std::size(list)) - 1));
  }

 private:
  std::mt19937_64 numbers_;
};

struct World {
  World(std::uint64_t seed, std::string folder) : Random(seed), Folder(std::move(folder)) {}

  Dice Random;
  std::string Folder;               // all that the program may write lies below it
  Korva* State = nullptr;           // of the program that is running
  frmMain* Main = nullptr;          // once it is there
  bool Runs = false;                // the program has started
  bool AtOuterLoop = false;         // no box, dialog or command is going on beneath this action
  bool Crashes = false;             // the program ends here, as if by force
  bool ToldBefore = false;          // as a signal of the system tells it
  int Pause = 0;                    // milliseconds before the next action
  std::string Settings;             // the settings file
  std::vector<std::string> Locked;  // whose permissions were taken away

  // Where projects lie by themselves.
  std::string Projects() const { return State->Places.ProductFolder; }
};

// Marks a window that a person has placed: it may grow from there.
inline constexpr const char* kPlacedProperty = "placed";

// Something that happens to the program. What it is going to do is noted before it does it.
struct Action {
  int Weight;
  void (*Do)(World& world);
};
const std::vector<Action>& InputActions();
const std::vector<Action>& FileActions();

// The window that stands in front: a menu, a box, the active one. Nothing at the very start.
QWidget* Front();
// All windows that can be seen, in an order that is the same in every run.
QWidgetList VisibleWindows();
// Clicks the middle of a widget, as a mouse does.
void ClickOn(QWidget& widget);
// Presses a key and lets it go; `text` is what it types, where the key does not tell.
void KeyClick(QWindow& window, int key, Qt::KeyboardModifiers keys = {}, QString text = {});

// Answers a box or a file dialog that stands in front. False if there is none, or if something else is to
// happen to it.
bool AnswerDialog(World& world);
// Closes what stands in front, at last the main window, without saving.
void CloseFront(World& world);

// What a file holds; nothing if it is none or cannot be read.
std::string Read(const std::string& path);
// A file of the folder, one that is not there, or one that cannot be.
std::string SomeFile(World& world);
// A text that people do not type but paste.
QString OddText(World& world);

// Fills the program's folder before a start with what a random person has there.
void PrepareFolders(World& world);
// Gives back all permissions.
void Unlock(World& world);

}  // namespace korva::desktop::random
