// Loaded in front of a program: sets a locale with a comma for a point, for C and for the streams of C++.
#include <clocale>
#include <cstdlib>
#include <locale>

namespace {

struct Grouping : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

[[maybe_unused]] const bool kSet = [] {
  std::locale::global(std::locale(std::locale::classic(), new Grouping));
  if (std::setlocale(LC_NUMERIC, "comma") == nullptr || std::localeconv()->decimal_point[0] != ',') {
    std::abort();
  }
  return true;
}();

}  // namespace
