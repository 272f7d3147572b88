// How the overburden's load comes on the pillars.
#pragma once

namespace korva {

// By the number that a file holds. A file may hold others, which no choice in a form stands for.
enum class OverburdenModel : int {
  kTraditionalModel = 0,
  kLaminatedModel = 1,
  kComparedModels = 2,  // both, side by side
};
using enum OverburdenModel;

// Which of the two a run takes; another number than the three is the laminated one.
constexpr bool UsesTraditional(OverburdenModel model) {
  return model == kTraditionalModel || model == kComparedModels;
}
constexpr bool UsesLaminated(OverburdenModel model) {
  return model != kTraditionalModel;
}

}  // namespace korva
