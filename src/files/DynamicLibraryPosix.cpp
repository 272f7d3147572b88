#include <dlfcn.h>
#include <fmt/format.h>

#include "core/RuntimeError.h"
#include "files/DynamicLibrary.h"

namespace korva {

std::string LibraryFile(const std::string& name) {
  return "lib" + name + ".so";
}

AnyFunction LibraryFunction(const std::string& file, const char* name) {
  void* loaded = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);  // counted; it stays from the first call on
  if (loaded == nullptr) {
    throw RuntimeError(ErrorNumber::kFileNotFound,
                       fmt::format("the library {} cannot be loaded: {}", file, ::dlerror()));
  }
  return reinterpret_cast<AnyFunction>(::dlsym(loaded, name));
}

}  // namespace korva
