// The records that an .xls workbook is made of. Numbers in them are little-endian. Whatever is cut off fails
// with kDamaged.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korva {

enum RecordId : std::uint16_t {
  kFormulaRecord = 0x0006,
  kEndRecord = 0x000A,
  kDateSystemRecord = 0x0022,
  kPasswordRecord = 0x002F,
  kContinueRecord = 0x003C,
  kCodePageRecord = 0x0042,
  kNotCalculatedRecord = 0x005E,
  kSheetRecord = 0x0085,
  kRkRowRecord = 0x00BD,
  kRichTextRecord = 0x00D6,
  kStyleRecord = 0x00E0,
  kSharedTextsRecord = 0x00FC,
  kSharedTextRecord = 0x00FD,
  kCalculatorRecord = 0x01C1,
  kNumberRecord = 0x0203,
  kTextRecord = 0x0204,
  kBooleanOrErrorRecord = 0x0205,
  kStringRecord = 0x0207,
  kRkRecord = 0x027E,
  kFormatRecord = 0x041E,
  kBeginRecord = 0x0809,
};

// Takes numbers off the front of bytes.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  std::size_t Left() const { return bytes_.size(); }
  std::string_view Take(std::size_t count);
  std::uint8_t Byte() { return static_cast<std::uint8_t>(Take(1)[0]); }
  std::uint16_t Word() { return static_cast<std::uint16_t>(Whole(2)); }
  std::uint32_t Long() { return static_cast<std::uint32_t>(Whole(4)); }
  double Number();
  // A number in four bytes: the front of a double or a whole number, either in hundredths if it says so.
  double Rk();

 private:
  std::uint64_t Whole(std::size_t bytes);

  std::string_view bytes_;
};

struct Record {
  std::uint16_t Id = 0;
  std::string_view Bytes;
};

// Goes from record to record.
class RecordReader {
 public:
  explicit RecordReader(std::string_view stream) : left_(stream) {}

  Record Next();
  // The next record, if it goes on with the one before.
  bool TakeContinued(Record& record);

 private:
  ByteReader left_;
};

// How a workbook holds texts.
struct TextCoding {
  bool IsUnicode = true;  // as since 1997; else bytes of the code page
  std::uint16_t CodePage = 1252;
};

// A text of `length` characters in UTF-8, off the front of `reader`. Where its record ends, the text goes on
// in the records after it, and so does `reader`.
std::string TakeText(std::size_t length, ByteReader& reader, const TextCoding& coding, RecordReader& records);

// The same for a text that stays within its record.
std::string TakeText(std::size_t length, ByteReader& reader, const TextCoding& coding);

// One of the texts that cells share, with a head of its own: formats of its runs and readings follow the
// characters and are left out. Only workbooks since 1997 have them.
std::string TakeSharedText(ByteReader& reader, RecordReader& records);

}  // namespace korva
