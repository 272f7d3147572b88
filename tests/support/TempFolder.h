#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/FilePaths.h"

namespace korva {

// A folder of its own for one test, removed with all that is in it.
class TempFolder {
 public:
  TempFolder() : path_(testing::TempDir() + "/korva.XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr) {
      throw std::runtime_error("no temporary folder");
    }
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::filesystem::path Path() const { return PathOf(path_); }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

  std::string Put(std::string_view name, std::string_view bytes) const {
    const std::string path = *this / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  static std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(Utf8Of(entry.path().filename()));
    }
    return names;
  }

 private:
  std::string path_;
};

}  // namespace korva
