#include "workbook/ReadSheet.h"

#include "files/PlatformFile.h"
#include "workbook/XlsSheet.h"
#include "workbook/XlsxSheet.h"

namespace korva {

Sheet ReadSheet(const std::string& workbook, std::string_view name, const std::function<bool()>& goOn) {
  const Reading reading(workbook, goOn);
  const std::string bytes = ReadWholeFile(workbook, kLargestWorkbook);
  if (bytes.starts_with("PK")) {
    return ReadXlsxSheet(bytes, name, reading);
  }
  if (bytes.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1")) {
    return ReadXlsSheet(workbook, name, FindXlsReader(), reading);
  }
  reading.Refuse("is no Excel workbook (.xls or .xlsx)");
}

}  // namespace korva
