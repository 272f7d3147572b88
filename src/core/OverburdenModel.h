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

}  // namespace korva
