// Zips in memory, byte by byte, so that they can also be wrong.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korva::test {

struct ZipEntry {
  std::string Name;
  std::string Packed;
  bool IsDeflated = false;
  std::uint32_t Checksum = 0;
  std::uint32_t Size = 0;  // unpacked, as declared
  std::uint16_t Flags = 0;
};

inline ZipEntry Stored(std::string name, std::string bytes) {
  const auto size = static_cast<std::uint32_t>(bytes.size());
  const auto sum = static_cast<std::uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), size));
  return {std::move(name), std::move(bytes), false, sum, size, 0};
}

namespace detail {

inline void Put(std::string& bytes, std::uint64_t number, int count) {
  for (int i = 0; i < count; ++i) {
    bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
  }
}

// What the two headers of an entry have in common.
inline void PutEntry(std::string& bytes, const ZipEntry& entry) {
  Put(bytes, 20, 2);
  Put(bytes, entry.Flags, 2);
  Put(bytes, entry.IsDeflated ? 8 : 0, 2);
  Put(bytes, 0, 4);  // its time
  Put(bytes, entry.Checksum, 4);
  Put(bytes, entry.Packed.size(), 4);
  Put(bytes, entry.Size, 4);
  Put(bytes, entry.Name.size(), 2);
  Put(bytes, 0, 2);  // nothing extra
}

}  // namespace detail

inline std::string ZipOf(const std::vector<ZipEntry>& entries) {
  std::string bytes;
  std::string list;
  for (const ZipEntry& entry : entries) {
    list += "PK\x01\x02";
    detail::Put(list, 20, 2);
    detail::PutEntry(list, entry);
    detail::Put(list, 0, 4);  // no comment, disk 0
    detail::Put(list, 0, 6);  // no attributes
    detail::Put(list, bytes.size(), 4);
    list += entry.Name;
    bytes += "PK\x03\x04";
    detail::PutEntry(bytes, entry);
    bytes += entry.Name;
    bytes += entry.Packed;
  }
  const std::size_t listAt = bytes.size();
  bytes += list + "PK\x05\x06";
  detail::Put(bytes, 0, 4);
  detail::Put(bytes, entries.size(), 2);
  detail::Put(bytes, entries.size(), 2);
  detail::Put(bytes, list.size(), 4);
  detail::Put(bytes, listAt, 4);
  detail::Put(bytes, 0, 2);
  return bytes;
}

// Zeros in large blocks, deflated to a thousandth: `blocks` of 16 MiB.
inline std::string DeflatedZeros(int blocks) {
  std::string zeros(std::size_t{16} << 20, '\0');
  std::string packed(std::size_t{64} << 10, '\0');
  z_stream stream = {};
  deflateInit2(&stream, 1, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  stream.next_in = reinterpret_cast<Bytef*>(zeros.data());
  stream.avail_in = static_cast<uInt>(zeros.size());
  std::string block;
  do {
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FULL_FLUSH);
    block.append(packed, 0, packed.size() - stream.avail_out);
  } while (stream.avail_out == 0);
  deflateEnd(&stream);
  std::string all;
  for (int i = 0; i < blocks; ++i) {
    all += block;
  }
  return all + std::string("\x03\0", 2);  // an empty last block
}

}  // namespace korva::test
