#include "xls/OleFile.h"

#include <gsf/gsf.h>

#include <memory>

#include "xls/Failure.h"

namespace korva {

namespace {

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using Owned = std::unique_ptr<Object, Unref>;

Owned<GsfInput> Stream(GsfInfile* file, const char* name) {
  return Owned<GsfInput>(gsf_infile_child_by_name(file, name));
}

std::string BytesOf(GsfInput* stream) {
  static constexpr gsf_off_t kMostBytes = gsf_off_t{64} << 20;  // no file that is read is larger
  const gsf_off_t size = gsf_input_size(stream);
  if (size < 0 || size > kMostBytes) {
    throw Failure{XlsStatus::kDamaged};
  }
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (size > 0 && gsf_input_read(stream, bytes.size(), reinterpret_cast<guint8*>(bytes.data())) == nullptr) {
    throw Failure{XlsStatus::kDamaged};
  }
  return bytes;
}

}  // namespace

std::string ReadWorkbookStream(const char* path) {
  gsf_init();
  const Owned<GsfInput> input(gsf_input_stdio_new(path, nullptr));
  if (!input) {
    throw Failure{XlsStatus::kNotOpened};
  }
  const Owned<GsfInfile> file(gsf_infile_msole_new(input.get(), nullptr));
  if (!file) {
    throw Failure{XlsStatus::kDamaged};
  }
  for (const char* name : {"Workbook", "Book"}) {
    if (const auto stream = Stream(file.get(), name)) {
      return BytesOf(stream.get());
    }
  }
  throw Failure{Stream(file.get(), "EncryptedPackage") ? XlsStatus::kLocked : XlsStatus::kNoWorkbook};
}

}  // namespace korva
