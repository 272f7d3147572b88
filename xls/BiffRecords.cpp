#include "xls/BiffRecords.h"

#include <glib.h>

#include <algorithm>
#include <bit>
#include <memory>

#include "core/Encoding.h"
#include "xls/Failure.h"

namespace korva {

namespace {

// Flags of a text.
constexpr std::uint8_t kTwoBytesEach = 1;
constexpr std::uint8_t kHasReadings = 4;
constexpr std::uint8_t kHasRuns = 8;

// Adds up to `most` characters of one piece of text as UTF-16 and returns how many.
std::size_t TakeUnits(std::size_t most, bool wide, ByteReader& reader, std::u16string& units) {
  const std::size_t count = std::min(most, wide ? reader.Left() / 2 : reader.Left());
  for (std::size_t i = 0; i < count; ++i) {
    units += static_cast<char16_t>(wide ? reader.Word() : reader.Byte());
  }
  return count;
}

std::string Utf8OfUnits(const std::u16string& units) {
  std::string text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t point = units[i];
    if (IsHighSurrogate(point) && i + 1 < units.size() && IsLowSurrogate(units[i + 1])) {
      point = JoinSurrogates(point, units[++i]);
    }
    AppendUtf8(text, point == 0 ? U'\uFFFD' : point);
  }
  return text;
}

std::string Utf8OfCodePage(std::string_view bytes, std::uint16_t codePage) {
  static constexpr std::uint16_t kMacintosh = 0x8000;
  static constexpr std::uint16_t kWindows = 0x8001;
  const std::string name = codePage == kMacintosh || codePage == 10000 ? "MACINTOSH"
                           : codePage == kWindows || codePage == 0     ? "CP1252"
                           : codePage == 367                           ? "CP1252"
                                                                       : "CP" + std::to_string(codePage);
  gsize written = 0;
  const std::unique_ptr<gchar, decltype(&g_free)> text(
      g_convert(bytes.data(), static_cast<gssize>(bytes.size()), "UTF-8", name.c_str(), nullptr, &written,
                nullptr),
      g_free);
  return text ? std::string(text.get(), written) : Windows1252ToUtf8(bytes);
}

// Puts `reader` at the front of the record that goes on with its own.
void ContinueInNextRecord(ByteReader& reader, RecordReader& records) {
  Record more;
  if (!records.TakeContinued(more)) {
    throw Failure{XlsStatus::kDamaged};
  }
  reader = ByteReader(more.Bytes);
}

// Each piece but the first has a byte of flags in front.
std::string TakeUnicode(std::size_t length, bool wide, ByteReader& reader, RecordReader& records) {
  std::u16string units;
  for (;;) {
    length -= TakeUnits(length, wide, reader, units);
    if (length == 0) {
      return Utf8OfUnits(units);
    }
    ContinueInNextRecord(reader, records);
    wide = (reader.Byte() & kTwoBytesEach) != 0;
  }
}

std::string TakeBytes(std::size_t length, ByteReader& reader, RecordReader& records) {
  std::string bytes;
  for (;;) {
    const std::size_t count = std::min(length, reader.Left());
    bytes += reader.Take(count);
    length -= count;
    if (length == 0) {
      return bytes;
    }
    ContinueInNextRecord(reader, records);
  }
}

}  // namespace

std::string_view ByteReader::Take(std::size_t count) {
  if (count > bytes_.size()) {
    throw Failure{XlsStatus::kDamaged};
  }
  const std::string_view taken = bytes_.substr(0, count);
  bytes_.remove_prefix(count);
  return taken;
}

std::uint64_t ByteReader::Whole(std::size_t bytes) {
  const std::string_view taken = Take(bytes);
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes; ++i) {
    number |= static_cast<std::uint64_t>(static_cast<std::uint8_t>(taken[i])) << (8 * i);
  }
  return number;
}

double ByteReader::Number() {
  return std::bit_cast<double>(Whole(8));
}

double ByteReader::Rk() {
  const std::uint32_t bits = Long();
  const double number = (bits & 2U) != 0 ? static_cast<std::int32_t>(bits) >> 2
                                         : std::bit_cast<double>(std::uint64_t{bits & ~3U} << 32);
  return (bits & 1U) != 0 ? number / 100 : number;
}

Record RecordReader::Next() {
  const std::uint16_t id = left_.Word();
  const std::uint16_t size = left_.Word();
  return {id, left_.Take(size)};
}

bool RecordReader::TakeContinued(Record& record) {
  ByteReader ahead = left_;
  if (ahead.Left() < 2 || ahead.Word() != kContinueRecord) {
    return false;
  }
  record = Next();
  return true;
}

std::string TakeText(std::size_t length, ByteReader& reader, const TextCoding& coding,
                     RecordReader& records) {
  if (length == 0) {
    return {};
  }
  if (!coding.IsUnicode) {
    return Utf8OfCodePage(TakeBytes(length, reader, records), coding.CodePage);
  }
  const bool wide = (reader.Byte() & kTwoBytesEach) != 0;
  return TakeUnicode(length, wide, reader, records);
}

std::string TakeText(std::size_t length, ByteReader& reader, const TextCoding& coding) {
  RecordReader none{{}};
  return TakeText(length, reader, coding, none);
}

std::string TakeSharedText(ByteReader& reader, RecordReader& records) {
  static constexpr std::size_t kBytesOfRun = 4;
  if (reader.Left() == 0) {
    ContinueInNextRecord(reader, records);
  }
  const std::size_t length = reader.Word();
  const std::uint8_t flags = reader.Byte();
  const std::size_t runs = (flags & kHasRuns) != 0 ? reader.Word() : std::uint16_t{0};
  const std::size_t readings = (flags & kHasReadings) != 0 ? reader.Long() : 0U;
  std::string text = TakeUnicode(length, (flags & kTwoBytesEach) != 0, reader, records);
  TakeBytes(runs * kBytesOfRun + readings, reader, records);
  return text;
}

}  // namespace korva
