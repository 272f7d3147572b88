// The whole command under a locale that writes a comma for the point and a point between thousands.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

const std::string kSource =
    "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n";

using Environment = std::vector<std::pair<std::string, std::string>>;

class Locale : public testing::Test {
 protected:
  void SetUp() override {
    const std::string maker = "/usr/bin/localedef";
    if (!std::filesystem::exists(maker)) {
      GTEST_SKIP() << "no " << maker;
    }
    // Its status tells of the categories that are left out, too.
    RunProgram(
        {maker, {"-c", "-i", folder_.Put("source", kSource), folder_ / "comma"}, folder_ / "", {}, {}});
    ASSERT_TRUE(std::filesystem::exists(folder_ / "comma/LC_NUMERIC"));
  }

  // What a call prints and the file OUT that it makes.
  std::string Call(std::vector<std::string> arguments, Environment environment) const {
    std::filesystem::create_directories(folder_ / "tmp");
    std::filesystem::remove(folder_ / "OUT.KVL");
    environment.emplace_back("TMPDIR", folder_ / "tmp");
    const ProgramResult result =
        RunProgram({KORVA_PROGRAM, std::move(arguments), folder_ / "", std::move(environment), {}});
    const std::string file =
        std::filesystem::exists(folder_ / "OUT.KVL") ? TempFolder::Bytes(folder_ / "OUT.KVL") : "";
    return std::to_string(result.Status) + "\n" + result.Out + result.Err + file;
  }

  const TempFolder folder_;
};

TEST_F(Locale, ACommaForThePointChangesNothing) {
  const std::string deep = KORVA_EXAMPLES "/deep-cover.KVL";
  const std::string metric = KORVA_EXAMPLES "/metric-one-side-gob.KVL";
  for (const std::vector<std::string>& call : std::vector<std::vector<std::string>>{
           {"batch", KORVA_EXAMPLES, "--csv"},
           {"report", deep},
           {"report", metric, "--json"},
           {"report", metric, "--model", "compared", "--set", "CellSizeMetric=0.75"},
           {"calc", deep},
           {"calc", metric, "--json"},
           {"sweep", metric, "1", "--min", "61.5", "--max", "1234.5"},
           {"sweep", deep, "2", "--json"},
           {"plan", metric, "--json"},
           {"plan", deep, "--plot", "3", "-o", "OUT.KVL.svg"},
           {"units", "stress", "psi", "1234.5"},
           {"units", "length", "ft", "0.125", "--json"},
           {"convert", metric, "OUT.KVL"},
           {"save", deep, "OUT.KVL"},
           {"save", folder_.Put("faulty", "KORVA_500\n 123456.5 \n"), "OUT.KVL"},
           {"import", "cases", KORVA_EXAMPLES "/cases.xlsx", "OUT", "--all", "--json"},
           {"import", "cases", KORVA_WORKBOOKS "/cases.xls", "OUT2", "--json"},
       }) {
    const std::string usual = Call(call, {});
    EXPECT_EQ(Call(call, {{"LD_PRELOAD", KORVA_COMMA_LOCALE}, {"LOCPATH", folder_ / ""}}), usual)
        << testing::PrintToString(call);
  }
}

}  // namespace
}  // namespace korva
