#include "files/OwnLibrary.h"

#include <fmt/format.h>

#include "core/RuntimeError.h"

namespace korva {

// The version stands in the file's name: the library of another version, installed while this program runs,
// may have other records.
AnyFunction OwnLibraryFunction(const std::string& library, const char* name) {
  const std::string file = LibraryFile(library + "-" + KORVA_LIBRARY_VERSION);
  const AnyFunction function = LibraryFunction(file, name);
  if (function == nullptr) {
    throw RuntimeError(ErrorNumber::kFileNotFound,
                       fmt::format("the library {} has no function {}", file, name));
  }
  return function;
}

}  // namespace korva
