#include "xls/BiffBook.h"

#include <map>

#include "workbook/SheetBuilder.h"
#include "xls/Failure.h"

namespace korva {

namespace {

constexpr std::uint16_t kSince1997 = 0x0600;
constexpr std::uint16_t kSince1995 = 0x0500;

class BookReader {
 public:
  BiffBook Read(std::string_view stream) {
    RecordReader records(stream);
    Begin(records.Next());
    for (Record record = records.Next(); record.Id != kEndRecord; record = records.Next()) {
      Note(record, records);
    }
    for (const std::uint16_t format : styles_) {
      const auto custom = formats_.find(format);
      book_.DateStyles.push_back(custom == formats_.end() ? IsBuiltInDateFormat(format) : custom->second);
    }
    return std::move(book_);
  }

 private:
  void Begin(const Record& record) {
    ByteReader reader(record.Bytes);
    const std::uint16_t version = record.Id == kBeginRecord ? reader.Word() : std::uint16_t{0};
    if (version != kSince1997 && version != kSince1995) {
      throw Failure{XlsStatus::kDamaged};
    }
    book_.Coding.IsUnicode = version == kSince1997;
  }

  void Note(const Record& record, RecordReader& records) {
    ByteReader reader(record.Bytes);
    switch (record.Id) {
      case kPasswordRecord:
        throw Failure{XlsStatus::kLocked};
      case kCodePageRecord:
        book_.Coding.CodePage = reader.Word();
        break;
      case kDateSystemRecord:
        book_.Dates = reader.Word() == 1 ? DateSystem::k1904 : DateSystem::k1900;
        break;
      case kCalculatorRecord:
        reader.Long();  // its own number once more
        book_.Calculator = reader.Long();
        break;
      case kStyleRecord:
        reader.Word();  // its font
        styles_.push_back(reader.Word());
        break;
      case kFormatRecord: {
        const std::uint16_t number = reader.Word();
        const std::size_t length = book_.Coding.IsUnicode ? reader.Word() : reader.Byte();
        formats_[number] = IsDateFormat(TakeText(length, reader, book_.Coding));
        break;
      }
      case kSheetRecord:
        NoteSheet(reader);
        break;
      case kSharedTextsRecord:
        NoteTexts(reader, records);
        break;
      default:
        break;
    }
  }

  void NoteSheet(ByteReader reader) {
    const std::uint32_t offset = reader.Long();
    reader.Byte();  // whether it is shown
    const bool isWorksheet = reader.Byte() == 0;
    const std::size_t length = reader.Byte();
    if (isWorksheet) {
      book_.Worksheets.push_back({TakeText(length, reader, book_.Coding), offset});
    }
  }

  void NoteTexts(ByteReader reader, RecordReader& records) {
    reader.Long();  // how many cells have them
    const std::uint32_t count = reader.Long();
    if (count > kMostCells) {
      throw Failure{XlsStatus::kTooLarge};
    }
    for (std::uint32_t i = 0; i < count; ++i) {
      book_.Texts.push_back(TakeSharedText(reader, records));
    }
  }

  BiffBook book_;
  std::vector<std::uint16_t> styles_;
  std::map<std::uint16_t, bool> formats_;
};

}  // namespace

BiffBook ReadBiffBook(std::string_view stream) {
  return BookReader().Read(stream);
}

}  // namespace korva
