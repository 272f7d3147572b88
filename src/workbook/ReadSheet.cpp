#include "workbook/ReadSheet.h"

#include "files/FileReader.h"
#include "workbook/XlsSheet.h"
#include "workbook/XlsxSheet.h"

namespace korva {

namespace {

// The first part of an OpenDocument file stands unpacked after the zip's first head and tells what it is.
bool IsOpenDocument(std::string_view bytes) {
  constexpr std::size_t kHead = 30;
  return bytes.size() > kHead &&
         bytes.substr(kHead).starts_with("mimetypeapplication/vnd.oasis.opendocument.");
}

}  // namespace

Sheet ReadSheet(const std::string& workbook, std::string_view name, const std::function<bool()>& goOn) {
  const Reading reading(workbook, goOn);
  const std::string bytes = ReadWholeFile(workbook, kLargestWorkbook);
  if (IsOpenDocument(bytes)) {
    reading.Refuse(
        "is an OpenDocument file (.ods), which is not read: open it in its program, save it as Excel workbook "
        "(.xlsx) and choose that");
  }
  if (bytes.starts_with("PK")) {
    return ReadXlsxSheet(bytes, name, reading);
  }
  if (bytes.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1")) {
    return ReadXlsSheet(workbook, name, FindXlsReader(), reading);
  }
  reading.Refuse("is not an Excel workbook (.xls or .xlsx)");
}

}  // namespace korva
