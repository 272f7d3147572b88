#include "files/SafeWriter.h"

#include <fmt/format.h>

#include "core/RuntimeError.h"

namespace korva {

void WriteFileSafely(const std::string& path, std::string_view bytes) {
  WriteFileSafely(path, bytes, *SystemFileReplacement());
}

void WriteFileSafely(const std::string& path, std::string_view bytes, FileReplacement& replacement) {
  const FileState state = StateOfFile(path);
  if (state.exists && !state.isRegular) {
    throw RuntimeError(ErrorNumber::kPathFileAccess,
                       fmt::format("{}: {}", path, state.isFolder ? "is a folder" : "is no regular file"));
  }
  if (state.exists) {
    RequireWritable(path);  // replacing it would not ask
  }
  const std::string target = ResolveLinks(path);
  try {
    replacement.CreateBeside(target, state.mode);
    replacement.Write(bytes);
    replacement.Flush();
    replacement.Close();
    replacement.Rename(target);
  } catch (const RuntimeError&) {
    replacement.Discard();
    throw;
  }
}

}  // namespace korva
