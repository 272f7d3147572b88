// The library's one function.
#include <cfenv>
#include <exception>
#include <fstream>
#include <new>
#include <string>
#include <string_view>

#include "ExchangeLine.h"
#include "Factors.h"
#include "ProgramFolder.h"
#include "ResultFile.h"
#include "Status.h"
#include "korvastrond.h"

namespace korva::laminated {

namespace {

constexpr std::size_t kLongestLine = 64 * std::size_t{1024};

std::string ReadExchangeFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text(kLongestLine + 1, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (!file.is_open() || file.bad()) {
    throw Failure{KORVASTROND_NO_EXCHANGE_FILE};
  }
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (text.size() > kLongestLine) {
    throw Failure{KORVASTROND_NOT_52_FIELDS};
  }
  return text;
}

std::filesystem::path PathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

int Run(const char* path) {
  try {
    if (path == nullptr) {
      return KORVASTROND_NO_EXCHANGE_FILE;
    }
    const std::filesystem::path exchange = PathOf(path);
    const Panel panel = ReadExchangeLine(ReadExchangeFile(exchange));
    const Factors factors = ComputeFactors(panel);
    if (!AreFinite(factors)) {
      throw OverflowFailure(panel);
    }
    WriteResult(ResultPath(exchange, ProgramFolder()), ResultText(factors));
    return KORVASTROND_DONE;
  } catch (const Failure& failure) {
    return failure.Code;
  } catch (const std::bad_alloc&) {
    return KORVASTROND_OUT_OF_MEMORY;
  } catch (const std::exception&) {
    return KORVASTROND_INTERNAL_ERROR;
  }
}

}  // namespace

}  // namespace korva::laminated

// The caller's floating-point flags and modes are left as they were.
std::int16_t KORVA_Run_STROND(const char* path) {
  std::fenv_t caller;
  std::fegetenv(&caller);
  std::fesetenv(FE_DFL_ENV);
  const int code = korva::laminated::Run(path);
  std::fesetenv(&caller);
  return static_cast<std::int16_t>(code);
}
