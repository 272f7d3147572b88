#include "workbook/ZipParts.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "core/Text.h"

namespace korva {

namespace {

// The name under which a part is kept: some writers use backslashes, and letters of either size name one
// part.
std::string KeyOf(std::string_view name) {
  std::string key(name);
  for (char& c : key) {
    c = c == '\\' ? '/' : LowerCase(c);
  }
  return key;
}

}  // namespace

voidpf ZipParts::Open(voidpf source, const void*, int) {
  return source;
}

uLong ZipParts::Take(voidpf source, voidpf, void* room, uLong size) {
  Source& from = *static_cast<Source*>(source);
  const std::string_view bytes = from.Bytes.substr(static_cast<std::size_t>(from.Position), size);
  std::memcpy(room, bytes.data(), bytes.size());
  from.Position += bytes.size();
  return static_cast<uLong>(bytes.size());
}

ZPOS64_T ZipParts::Tell(voidpf source, voidpf) {
  return static_cast<Source*>(source)->Position;
}

long ZipParts::Seek(voidpf source, voidpf, ZPOS64_T offset, int origin) {
  Source& from = *static_cast<Source*>(source);
  const std::uint64_t size = from.Bytes.size();
  const std::uint64_t base = origin == ZLIB_FILEFUNC_SEEK_CUR   ? from.Position
                             : origin == ZLIB_FILEFUNC_SEEK_END ? size
                                                                : 0;
  if (offset > size - base) {
    return -1;
  }
  from.Position = base + offset;
  return 0;
}

ZipParts::ZipParts(std::string_view bytes, const Reading& reading)
    : reading_(reading), source_(std::make_unique<Source>(Source{bytes, 0})), zip_(nullptr, unzClose) {
  zlib_filefunc64_def calls = {};
  calls.zopen64_file = Open;
  calls.zread_file = Take;
  calls.ztell64_file = Tell;
  calls.zseek64_file = Seek;
  calls.zclose_file = [](voidpf, voidpf) { return 0; };
  calls.zerror_file = [](voidpf, voidpf) { return 0; };
  calls.opaque = source_.get();
  zip_.reset(unzOpen2_64("", &calls));
  if (!zip_) {
    reading.Damaged("its list of parts is missing or cut off");
  }
  ListParts();
}

void ZipParts::ListParts() {
  unz_global_info64 info = {};
  if (unzGetGlobalInfo64(zip_.get(), &info) != UNZ_OK || info.number_entry > kMostParts) {
    reading_.Damaged(fmt::format("it has more than {} parts", kMostParts));
  }
  int state = info.number_entry == 0 ? UNZ_END_OF_LIST_OF_FILE : unzGoToFirstFile(zip_.get());
  for (; state == UNZ_OK; state = unzGoToNextFile(zip_.get())) {
    std::array<char, 1024> name{};
    unz64_file_pos position = {};
    if (unzGetCurrentFileInfo64(zip_.get(), nullptr, name.data(), name.size() - 1, nullptr, 0, nullptr, 0) !=
            UNZ_OK ||
        unzGetFilePos64(zip_.get(), &position) != UNZ_OK) {
      reading_.Damaged("its list of parts cannot be read");
    }
    if (!parts_.emplace(KeyOf(name.data()), position).second) {
      reading_.Damaged(fmt::format("its part {} appears twice", name.data()));
    }
  }
  if (state != UNZ_END_OF_LIST_OF_FILE) {
    reading_.Damaged("its list of parts is cut off");
  }
}

bool ZipParts::Has(std::string_view name) const {
  return parts_.contains(KeyOf(name));
}

std::string ZipParts::Read(std::string_view name) {
  reading_.ThrowIfCancelled();
  const auto part = parts_.find(KeyOf(name));
  if (part == parts_.end()) {
    reading_.Damaged(fmt::format("it has no part {}", name));
  }
  unz_file_info64 info = {};
  if (unzGoToFilePos64(zip_.get(), &part->second) != UNZ_OK ||
      unzGetCurrentFileInfo64(zip_.get(), &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) {
    reading_.Damaged(fmt::format("its part {} cannot be found", name));
  }
  if ((info.flag & 1U) != 0) {
    reading_.Refuse(kLockedWorkbook);
  }
  if (info.uncompressed_size > kLargestPart || unpacked_ + info.uncompressed_size > kLargestUnpacked) {
    reading_.TooLarge(fmt::format("its part {} unpacks to {} bytes", name, info.uncompressed_size));
  }
  return Unpacked(name, info.uncompressed_size);
}

std::string ZipParts::Unpacked(std::string_view name, std::uint64_t size) {
  static constexpr std::size_t kAtOnce = std::size_t{256} << 10;
  std::string bytes;
  if (unzOpenCurrentFile(zip_.get()) != UNZ_OK) {
    reading_.Damaged(fmt::format("its part {} cannot be unpacked", name));
  }
  for (;;) {
    const std::size_t filled = bytes.size();
    bytes.resize(filled + kAtOnce);
    const int count = unzReadCurrentFile(zip_.get(), bytes.data() + filled, kAtOnce);
    bytes.resize(filled + static_cast<std::size_t>(std::max(count, 0)));
    if (count < 0 || bytes.size() > size) {
      unzCloseCurrentFile(zip_.get());
      reading_.Damaged(fmt::format("its part {} cannot be unpacked", name));
    }
    if (count == 0) {
      break;
    }
    reading_.ThrowIfCancelled();
  }
  if (unzCloseCurrentFile(zip_.get()) != UNZ_OK || bytes.size() != size) {
    reading_.Damaged(fmt::format("its part {} does not match its entry", name));
  }
  unpacked_ += size;
  return bytes;
}

}  // namespace korva
