// What commands are tested on: a state, a folder of its own and scripted ports.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/Korva.h"
#include "support/ScriptedPorts.h"
#include "support/TempFolder.h"

namespace korva {

class CommandBench : public testing::Test {
 protected:
  ~CommandBench() override { std::filesystem::current_path(before_); }  // wherever the test has gone

  TempFolder folder;
  Korva korva;
  ScriptedPorts ports;

 private:
  const std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace korva
