#include "workbook/XlsSheet.h"

#include <fmt/format.h>

#include <array>

#include "core/RuntimeError.h"
#include "files/ChildProcess.h"
#include "files/PlatformFile.h"
#include "workbook/XlsLines.h"

namespace korva {

namespace {

constexpr std::size_t kLargestAnswer = std::size_t{128} << 20;

[[noreturn]] void Fail(const ChildResult& result, std::string_view name, const Reading& reading) {
  switch (static_cast<XlsStatus>(result.Status)) {
    case XlsStatus::kNoSheet:
      reading.NoSheet(name, ParseXlsSheetNames(result.Output, reading));
    case XlsStatus::kDamaged:
      reading.Damaged("its records do not fit together");
    case XlsStatus::kLocked:
      reading.Refuse(kLockedWorkbook);
    case XlsStatus::kTooLarge:
      reading.TooLarge("it takes more memory, or has more cells, than a worksheet may");
    case XlsStatus::kNoWorkbook:
      reading.Refuse("is a document, but not a workbook that can be read; save it as .xlsx");
    case XlsStatus::kNotOpened:
      reading.Refuse("the program korva-xls could not open it");
    case XlsStatus::kDone:
    case XlsStatus::kWrongCall:
      break;
  }
  reading.Refuse(fmt::format("the program korva-xls ended with status {}", result.Status));
}

}  // namespace

XlsReader FindXlsReader() {
  static constexpr std::array<std::string_view, 3> kPlaces = {"korva-xls", "../xls/korva-xls",
                                                              "../libexec/korva-strond/korva-xls"};
  const std::string folder = ProgramFolder();
  for (const std::string_view place : kPlaces) {
    std::string program = fmt::format("{}/{}", folder, place);
    if (StateOfFile(program).isRegular) {
      return {std::move(program)};
    }
  }
  throw RuntimeError(
      ErrorNumber::kFileNotFound,
      fmt::format("the program korva-xls, which reads .xls workbooks, is not in {} nor where it is "
                  "installed; save the workbook as .xlsx",
                  folder));
}

Sheet ReadXlsSheet(const std::string& workbook, std::string_view name, const XlsReader& reader,
                   const Reading& reading) {
  const ChildCall call{reader.Program, {workbook, std::string(name)}, kLargestAnswer, reader.Limit};
  const ChildResult result = RunChild(call, [&reading] { reading.ThrowIfCancelled(); });
  switch (result.End) {
    case ChildEnd::kExited:
      break;
    case ChildEnd::kKilled:
      reading.Damaged("the program korva-xls was ended while reading it");
    case ChildEnd::kTookTooLong:
      reading.TooLarge(fmt::format("reading it takes more than {} s",
                                   std::chrono::duration<double>(reader.Limit).count()));
    case ChildEnd::kPrintedTooMuch:
      reading.TooLarge(fmt::format("its sheet has more than {} MiB", kLargestAnswer >> 20U));
  }
  if (result.Status != static_cast<int>(XlsStatus::kDone)) {
    Fail(result, name, reading);
  }
  return ParseXlsCells(result.Output, reading);
}

}  // namespace korva
