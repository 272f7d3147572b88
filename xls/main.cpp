// korva-xls WORKBOOK WORKSHEET: prints the cells of a worksheet of an .xls workbook. It is not meant to be
// called by people; the exit status and the form of the answer stand in workbook/XlsLines.h.
#include <freexl.h>

#include <cstdio>
#include <memory>
#include <new>
#include <string>

#include "core/Encoding.h"
#include "workbook/SheetBuilder.h"
#include "workbook/SheetName.h"
#include "xls/Answer.h"
#include "xls/BiffBook.h"
#include "xls/BiffCells.h"
#include "xls/Failure.h"
#include "xls/Limits.h"
#include "xls/OleFile.h"

namespace korva {

namespace {

void Check(int code) {
  if (code != FREEXL_OK) {
    throw Failure{code == FREEXL_INSUFFICIENT_MEMORY ? XlsStatus::kTooLarge : XlsStatus::kDamaged};
  }
}

class FreexlFile {
 public:
  explicit FreexlFile(const char* path) { Check(freexl_open(path, &handle_)); }
  ~FreexlFile() { freexl_close(handle_); }
  FreexlFile(const FreexlFile&) = delete;
  FreexlFile& operator=(const FreexlFile&) = delete;

  void Select(std::string_view sheet) const {
    unsigned sheets = 0;
    Check(freexl_get_info(handle_, FREEXL_BIFF_SHEET_COUNT, &sheets));
    for (unsigned i = 0; i < sheets; ++i) {
      const char* name = nullptr;
      Check(freexl_get_worksheet_name(handle_, static_cast<unsigned short>(i), &name));
      if (name != nullptr && IsSameSheetName(name, sheet)) {
        Check(freexl_select_active_worksheet(handle_, static_cast<unsigned short>(i)));
        return;
      }
    }
    throw Failure{XlsStatus::kDamaged};
  }

  // Adds the constant texts to `cells`.
  void AddTexts(BiffCells& cells) const {
    unsigned rows = 0;
    unsigned short columns = 0;
    Check(freexl_worksheet_dimensions(handle_, &rows, &columns));
    for (unsigned row = 0; row < rows; ++row) {
      for (unsigned short column = 0; column < columns; ++column) {
        FreeXL_CellValue value = {};
        Check(freexl_get_cell_value(handle_, row, column, &value));
        if ((value.type == FREEXL_CELL_TEXT || value.type == FREEXL_CELL_SST_TEXT) &&
            value.value.text_value != nullptr) {
          cells.emplace(BiffCells::key_type{row, column}, Cell{CellKind::kText, 0, value.value.text_value});
        }
      }
      if (cells.size() > kMostCells) {
        throw Failure{XlsStatus::kTooLarge};
      }
    }
  }

 private:
  const void* handle_ = nullptr;
};

XlsStatus AnswerFor(const char* path, std::string_view name) {
  const std::string stream = ReadWorkbookStream(path);
  const BiffBook book = ReadBiffBook(stream);
  Answer answer;
  for (const BiffBook::Worksheet& sheet : book.Worksheets) {
    if (!IsSameSheetName(sheet.Name, name)) {
      answer.AddSheet(sheet.Name);
      continue;
    }
    BiffCells cells = ReadBiffCells(stream, sheet.Offset, book);
    const FreexlFile file(path);
    file.Select(sheet.Name);
    file.AddTexts(cells);
    Answer found;
    for (const auto& [place, cell] : cells) {
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
