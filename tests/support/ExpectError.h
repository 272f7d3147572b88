#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/RuntimeError.h"

namespace korva {

// Runs `step`, which has to end in the run-time error `number`, and returns what that names as its cause.
template <class Step>
std::string ExpectError(ErrorNumber number, Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), number) << error.what();
    return error.Detail();
  }
  ADD_FAILURE() << "no run-time error; expected: " << ErrorDescription(number);
  return {};
}

}  // namespace korva
