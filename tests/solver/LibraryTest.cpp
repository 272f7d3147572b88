// The shared library from outside: exchange file in, result file out.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "Ground.h"
#include "ResultFile.h"
#include "korvastrond.h"
#include "support/TempFolder.h"

static int umaskCalls = 0;

// Stands before the system's own in this program.
extern "C" mode_t umask(mode_t mask) noexcept {
  ++umaskCalls;
  return static_cast<mode_t>(::syscall(SYS_umask, mask));
}

namespace korva::laminated {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLine =
    "0,0,6,500,20,80,90,4,60,60,60,0,0,0,0,0,0,3,600,800,0,100,0,0,0, 0,0,0, 0,0,0, 0,0,0, 0,1,0,0,900,162,111.8,"
    "21,21,0,0,0,0,0,0,0,0,0\r\n";

void Write(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

std::string Read(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

TEST(Library, TheResultFileLiesWhereTheFolderRulesSay) {
  EXPECT_EQ(ResultPath("/tmp/panel/panel.KVSD", ""), "/tmp/panel_KVSD.CSV");
  EXPECT_EQ(ResultPath("/panel/panel.KVSD", ""), "/panel_KVSD.CSV");
  EXPECT_EQ(ResultPath("/home/u/MyFolvane/Temp/panel.KVSD", ""), "/home/u/MyFolvane/Temp/panel_KVSD.CSV");
  EXPECT_EQ(ResultPath("/home/u/MyFolvane/Temp/Temp.KVSD", ""), "/home/u/MyFolvane/Temp/Temp_KVSD.CSV");
  EXPECT_EQ(ResultPath("/tmp/Temp/Temp.KVSD", ""), "/tmp/Temp_KVSD.CSV");
  const TempFolder folder;
  const fs::path program = folder.Path();
  EXPECT_EQ(ResultPath(program / "panel" / "panel.KVSD", program), program / "panel_KVSD..CSV");
}

TEST(Library, ARunLeavesAHeadingAndFortyFourNumbers) {
  const TempFolder folder;
  const fs::path exchange = folder.Path() / "panel" / "panel.KVSD";
  Write(exchange, kLine);
  ASSERT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_DONE);
  std::istringstream text(Read(folder.Path() / "panel_KVSD.CSV"));
  std::string line;
  std::getline(text, line);
  std::vector<double> items;
  while (std::getline(text, line)) {
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) {
      items.push_back(std::stod(field));
    }
  }
  ASSERT_EQ(items.size(), 44);
  EXPECT_EQ(std::fmod(items[0], 32), 0);
  EXPECT_GT(items[9], items[10]) << "development, retreat";
  EXPECT_GT(items[11], 1);
  EXPECT_EQ(items[13], 0) << "no second side";
  EXPECT_NEAR(items[19], 900 * PillarShape(40, 60, 6), 1e-3);
  EXPECT_NEAR(items[28], 900 * LongPillarShape(100, 6), 1e-3);
  EXPECT_NEAR(items[29], 100 * 111.8, 1e-3);
}

TEST(Library, WhatGoesWrongHasACodeAndLeavesTheOldResult) {
  const TempFolder folder;
  const fs::path root = folder.Path();
  const fs::path exchange = root / "panel.KVSD";
  EXPECT_EQ(KORVA_Run_STROND(nullptr), KORVASTROND_NO_EXCHANGE_FILE);
  EXPECT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_NO_EXCHANGE_FILE);
  EXPECT_EQ(KORVA_Run_STROND(root.c_str()), KORVASTROND_NO_EXCHANGE_FILE);
  Write(root / "panel_KVSD.CSV", "old");
  Write(exchange, "");
  EXPECT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_NOT_52_FIELDS);
  Write(exchange, std::string(100'000, '0'));
  EXPECT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_NOT_52_FIELDS);
  Write(exchange, std::string(kLine).replace(4, 1, "-"));
  EXPECT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_FIELD + 3);
  EXPECT_EQ(Read(root / "panel_KVSD.CSV"), "old");

  fs::remove(root / "panel_KVSD.CSV");
  fs::create_directory(root / "panel_KVSD.CSV");
  Write(exchange, kLine);
  EXPECT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_RESULT_NOT_WRITTEN);
  for (const auto& entry : fs::directory_iterator(root)) {
    EXPECT_FALSE(Utf8Of(entry.path().filename()).starts_with(".korvastrond")) << "left behind";
  }
}

// A line with one field changed, by its number.
std::string LineWith(int field, const std::string& value) {
  std::string line = kLine;
  std::size_t begin = 0;
  for (int i = 1; i < field; ++i) {
    begin = line.find(',', begin) + 1;
  }
  return line.replace(begin, line.find(',', begin) - begin, value);
}

TEST(Library, RefusesWhatIsSoSmallThatResultsOverflow) {
  const TempFolder folder;
  const fs::path root = folder.Path();
  const fs::path exchange = root / "panel.KVSD";
  for (const int field : {3, 40}) {  // entry height, unit weight
    for (const char* value : {"1e-308", "2.3E-306", "5e-324"}) {
      Write(exchange, LineWith(field, value));
      EXPECT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_FIELD + field) << value;
    }
    Write(exchange, LineWith(field, "1e-9"));
    EXPECT_EQ(KORVA_Run_STROND(exchange.c_str()), KORVASTROND_DONE) << field;
    fs::remove(root / "panel_KVSD.CSV");
  }
}

TEST(Library, TheResultHasThePermissionsOfTheProcessWhichStayAsTheyAre) {
  const TempFolder folder;
  const mode_t before = ::umask(027);
  const int calls = umaskCalls;
  WriteResult(folder / "result", "a result");
  EXPECT_EQ(umaskCalls, calls) << "they belong to all threads";
  EXPECT_EQ(::umask(before), mode_t{027});
  EXPECT_EQ(fs::status(folder / "result").permissions(), fs::perms(0640));
}

// Random changes of a good line either end with a code or with a result of finite numbers.
TEST(Library, ChangedLinesAreSolvedOrRefused) {
  const TempFolder folder;
  const fs::path exchange = folder.Path() / "panel.KVSD";
  std::mt19937 random(5);
  const std::string letters = "0123456789.,-eE \r";
  for (int run = 0; run < 60; ++run) {
    std::string line = kLine;
    for (int change = 0; change < 3; ++change) {
      line[random() % (line.size() - 2)] = letters[random() % letters.size()];
    }
    Write(exchange, line);
    fs::remove(folder.Path() / "panel_KVSD.CSV");
    const int code = KORVA_Run_STROND(exchange.c_str());
    const std::string result = Read(folder.Path() / "panel_KVSD.CSV");
    ASSERT_EQ(code == KORVASTROND_DONE, !result.empty()) << line;
    const std::string numbers = result.substr(result.find('\n') + 1);
    EXPECT_EQ(numbers.find_first_of("naif"), std::string::npos) << line;
    EXPECT_NE(code, KORVASTROND_INTERNAL_ERROR) << line;
  }
}

}  // namespace
}  // namespace korva::laminated
