// A variable of the environment that has another value for a while.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace korva {

class EnvironmentValue {
 public:
  EnvironmentValue(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name); before != nullptr) {
      before_ = before;
    }
    ::setenv(name, value.c_str(), 1);
  }
  ~EnvironmentValue() {
    if (before_) {
      ::setenv(name_, before_->c_str(), 1);
    } else {
      ::unsetenv(name_);
    }
  }
  EnvironmentValue(const EnvironmentValue&) = delete;
  EnvironmentValue& operator=(const EnvironmentValue&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace korva
