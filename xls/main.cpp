// korva-xls WORKBOOK WORKSHEET: prints the cells of a worksheet of an .xls workbook. It is not meant to be
// called by people; the exit status and the form of the answer stand in workbook/XlsLines.h.
#include <new>
#include <string>

#include "workbook/SheetName.h"
#include "xls/Answer.h"
#include "xls/BiffBook.h"
#include "xls/BiffCells.h"
#include "xls/Failure.h"
#include "xls/Limits.h"
#include "xls/OleFile.h"

namespace korva {

namespace {

XlsStatus AnswerFor(const char* path, std::string_view name) {
  const std::string stream = ReadWorkbookStream(path);
  const BiffBook book = ReadBiffBook(stream);
  Answer answer;
  for (const BiffBook::Worksheet& sheet : book.Worksheets) {
    if (!IsSameSheetName(sheet.Name, name)) {
      answer.AddSheet(sheet.Name);
      continue;
    }
    Answer found;
    for (const auto& [place, cell] : ReadBiffCells(stream, sheet.Offset, book)) {
      found.AddCell(place.first, place.second, cell);
    }
    return found.Print() ? XlsStatus::kDone : XlsStatus::kTooLarge;
  }
  return answer.Print() ? XlsStatus::kNoSheet : XlsStatus::kTooLarge;
}

XlsStatus Run(int count, char** words) {
  if (count != 3 || !LimitThisProcess()) {
    return XlsStatus::kWrongCall;
  }
  try {
    return AnswerFor(words[1], words[2]);
  } catch (const Failure& failure) {
    return failure.Status;
  } catch (const std::bad_alloc&) {
    return XlsStatus::kTooLarge;
  }
}

}  // namespace

}  // namespace korva

int main(int count, char** words) {
  return static_cast<int>(korva::Run(count, words));
}
