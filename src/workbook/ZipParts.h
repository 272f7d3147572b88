// The parts of a zipped workbook that is held in memory.
#pragma once

#include <minizip/unzip.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "workbook/Reading.h"

namespace korva {

// A workbook that unpacks to more is refused, by what it declares and by what comes out.
inline constexpr std::uint64_t kLargestPart = std::uint64_t{32} << 20;
inline constexpr std::uint64_t kLargestUnpacked = std::uint64_t{64} << 20;
inline constexpr std::uint64_t kMostParts = 4096;

class ZipParts {
 public:
  // `bytes` and `reading` have to outlive the parts. Ends the reading if they are no zip.
  ZipParts(std::string_view bytes, const Reading& reading);

  bool Has(std::string_view name) const;

  // The unpacked part `name`, which has no slash in front; small letters count as capitals. Its checksum is
  // tested. Ends the reading for a missing, damaged, locked or too large part.
  std::string Read(std::string_view name);

 private:
  struct Source {
    std::string_view Bytes;
    std::uint64_t Position = 0;
  };

  void ListParts();
  std::string Unpacked(std::string_view name, std::uint64_t size);

  static voidpf Open(voidpf source, const void* name, int mode);
  static uLong Take(voidpf source, voidpf stream, void* room, uLong size);
  static ZPOS64_T Tell(voidpf source, voidpf stream);
  static long Seek(voidpf source, voidpf stream, ZPOS64_T offset, int origin);

  const Reading& reading_;
  std::unique_ptr<Source> source_;
  std::unique_ptr<void, int (*)(unzFile)> zip_;
  std::map<std::string, unz64_file_pos, std::less<>> parts_;
  std::uint64_t unpacked_ = 0;
};

}  // namespace korva
