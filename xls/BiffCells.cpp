#include "xls/BiffCells.h"

#include <cmath>

#include "workbook/SheetBuilder.h"
#include "xls/Failure.h"

namespace korva {

namespace {

std::string ErrorName(std::uint8_t code) {
  switch (code) {
    case 0x00:
      return "#NULL!";
    case 0x07:
      return "#DIV/0!";
    case 0x0F:
      return "#VALUE!";
    case 0x17:
      return "#REF!";
    case 0x1D:
      return "#NAME?";
    case 0x24:
      return "#NUM!";
    case 0x2A:
      return "#N/A";
    default:
      return "#ERROR!";
  }
}

Cell BooleanOrError(std::uint8_t value, bool isError) {
  return isError ? Cell{CellKind::kError, 0, ErrorName(value)}
                 : Cell{CellKind::kBoolean, 0, value != 0 ? "TRUE" : "FALSE"};
}

class CellReader {
 public:
  CellReader(const BiffBook& book, RecordReader records)
      : book_(book), records_(records), isCalculatedAnew_(book.Calculator == 0) {}

  BiffCells Read() {
    if (records_.Next().Id != kBeginRecord) {
      throw Failure{XlsStatus::kDamaged};
    }
    for (int depth = 1; depth > 0;) {  // a chart within a sheet is a sheet of its own
      const Record record = records_.Next();
      depth += record.Id == kBeginRecord ? 1 : record.Id == kEndRecord ? -1 : 0;
      if (depth == 1) {
        Note(record);
      }
    }
    return std::move(cells_);
  }

 private:
  using Place = BiffCells::key_type;

  void Note(const Record& record) {
    ByteReader reader(record.Bytes);
    switch (record.Id) {
      case kNumberRecord: {
        const Place place = TakePlace(reader);
        const std::uint16_t style = reader.Word();
        Put(place, Numeric(reader.Number(), style));
        break;
      }
      case kRkRecord: {
        const Place place = TakePlace(reader);
        const std::uint16_t style = reader.Word();
        Put(place, Numeric(reader.Rk(), style));
        break;
      }
      case kRkRowRecord:
        NoteRkRow(reader);
        break;
      case kBooleanOrErrorRecord: {
        const Place place = TakePlace(reader);
        reader.Word();  // its style
        const std::uint8_t value = reader.Byte();
        Put(place, BooleanOrError(value, reader.Byte() != 0));
        break;
      }
      case kSharedTextRecord: {
        const Place place = TakePlace(reader);
        reader.Word();  // its style
        Put(place, {CellKind::kText, 0, SharedText(reader.Long())});
        break;
      }
      case kTextRecord:
      case kRichTextRecord: {
        const Place place = TakePlace(reader);
        reader.Word();  // its style
        const std::size_t length = reader.Word();
        Put(place, {CellKind::kText, 0, TakeText(length, reader, book_.Coding, records_)});
        break;
      }
      case kNotCalculatedRecord:
        isCalculatedAnew_ = true;
        break;
      case kFormulaRecord:
        NoteFormula(reader);
        break;
      case kStringRecord:
        NoteText(reader);
        break;
      default:
        break;
    }
  }

  const std::string& SharedText(std::uint32_t number) const {
    if (number >= book_.Texts.size()) {
      throw Failure{XlsStatus::kDamaged};
    }
    return book_.Texts[number];
  }

  void NoteRkRow(ByteReader reader) {
    static constexpr std::size_t kEach = 6;
    static constexpr std::size_t kLastColumn = 2;
    Place place = TakePlace(reader);
    for (; reader.Left() >= kEach + kLastColumn; ++place.second) {
      const std::uint16_t style = reader.Word();
      Put(place, Numeric(reader.Rk(), style));
    }
  }

  void NoteFormula(ByteReader reader) {
    static constexpr std::uint16_t kNoNumber = 0xFFFF;
    static constexpr std::uint8_t kEmptyText = 3;
    static constexpr std::uint16_t kCalculateWhenOpened = 2;
    const Place place = TakePlace(reader);
    const std::uint16_t style = reader.Word();
    ByteReader number = reader;
    const std::uint8_t kind = reader.Byte();
    reader.Byte();
    const std::uint8_t value = reader.Byte();
    reader.Take(3);
    const bool isNumber = reader.Word() != kNoNumber;
    const bool isCalculatedAnew = isCalculatedAnew_ || (reader.Word() & kCalculateWhenOpened) != 0;
    if (isCalculatedAnew || (!isNumber && kind == kEmptyText && IsOfScript())) {
      Put(place, {CellKind::kNoValue, 0, {}});
      return;
    }
    if (isNumber) {
      Put(place, Numeric(number.Number(), style));
      return;
    }
    switch (kind) {
      case 0:  // a text, in a record of its own that follows
        Put(place, {CellKind::kNoValue, 0, {}});
        awaited_ = &cells_.at(place);
        break;
      case 1:
      case 2:
        Put(place, BooleanOrError(value, kind == 2));
        break;
      case kEmptyText:
        Put(place, {CellKind::kText, 0, {}});
        break;
      default:
        throw Failure{XlsStatus::kDamaged};
    }
  }

  // Whether nobody has calculated it: scripts give a formula an empty text then.
  bool IsOfScript() const { return book_.Coding.IsUnicode && !book_.Calculator; }

  void NoteText(ByteReader reader) {
    const std::size_t length = reader.Word();
    std::string text = TakeText(length, reader, book_.Coding, records_);
    if (awaited_ != nullptr) {
      *awaited_ = {CellKind::kText, 0, std::move(text)};
      awaited_ = nullptr;
    }
  }

  static Place TakePlace(ByteReader& reader) {
    const int row = reader.Word();
    return {row, reader.Word()};
  }

  Cell Numeric(double number, std::uint16_t style) const {
    if (!std::isfinite(number)) {
      throw Failure{XlsStatus::kDamaged};
    }
    if (style < book_.DateStyles.size() && book_.DateStyles[style]) {
      if (auto date = DateText(number, book_.Dates)) {
        return {CellKind::kDate, number, std::move(*date)};
      }
    }
    return {CellKind::kNumber, number, {}};
  }

  // Two values at one place are damage, as in an .xlsx workbook.
  void Put(const Place& place, Cell cell) {
    awaited_ = nullptr;
    if (!cells_.emplace(place, std::move(cell)).second) {
      throw Failure{XlsStatus::kDamaged};
    }
    if (cells_.size() > kMostCells) {
      throw Failure{XlsStatus::kTooLarge};
    }
  }

  const BiffBook& book_;
  RecordReader records_;
  bool isCalculatedAnew_;  // when it is opened: values of formulas do not count
  BiffCells cells_;
  Cell* awaited_ = nullptr;  // the formula whose text has still to come
};

}  // namespace

BiffCells ReadBiffCells(std::string_view stream, std::size_t offset, const BiffBook& book) {
  if (offset > stream.size()) {
    throw Failure{XlsStatus::kDamaged};
  }
  return CellReader(book, RecordReader(stream.substr(offset))).Read();
}

}  // namespace korva
