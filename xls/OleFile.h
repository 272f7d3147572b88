// The container of an .xls workbook.
#pragma once

#include <string>

namespace korva {

// The stream of records in the file `path`. Fails with kNotOpened, kDamaged, kLocked for an encrypted .xlsx
// workbook, and kNoWorkbook for another document.
std::string ReadWorkbookStream(const char* path);

}  // namespace korva
