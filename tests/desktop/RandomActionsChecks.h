// What has to hold after every action.
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "desktop/RandomActionsWorld.h"

namespace korva::desktop::random {

class Checks {
 public:
  explicit Checks(World& world) : world_(world) {}

  // Ends the process if something does not hold.
  void All();
  // The program was ended, and the person has given up what was not saved.
  void GivenUp();
  // The program was ended by force, `toldBefore` if it heard of that: then it has kept everything, and what
  // it has kept is still to be there when it begins anew.
  void Crashed(bool toldBefore);
  // The program begins anew: what it knew is gone.
  void Begun();

 private:
  // What should be kept at one moment; nothing while all is saved.
  struct Moment {
    double Time = 0;  // seconds in which the event loop went round
    std::optional<std::string> Kept;
  };

  void WindowsAreOnTheScreen() const;
  void SomebodyCanGoOn();
  void FactorsAreNumbers() const;
  void TheFileIsTheProject();
  void UnsavedWorkIsKept();
  void NothingIsLost();
  double TimeOfLoop();
  std::optional<std::string> Unsaved() const;

  World& world_;
  std::deque<Moment> moments_;
  std::optional<std::string> owed_;  // the project as it was before the action, if it was not saved
  std::optional<std::string> crashed_;
  std::string knownBytes_;  // of the file as it was saved or read last
  std::optional<qint64> lastTick_;
  double time_ = 0;
  int stuck_ = 0;
};

}  // namespace korva::desktop::random
