#include "files/SafeWriter.h"

#include <fmt/format.h>

#include "core/RuntimeError.h"
#include "files/FileReplacement.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"

namespace korva {

namespace {

void Replace(const std::string& target, std::uint32_t mode, std::string_view bytes,
             FileReplacement& replacement) {
  try {
    replacement.CreateBeside(target, mode);
    replacement.Write(bytes);
    replacement.Flush();
    replacement.Close();
    replacement.Rename(target);
  } catch (const RuntimeError&) {
    replacement.Discard();
    throw;
  }
}

}  // namespace

void WriteFileSafely(const std::string& path, std::string_view bytes) {
  WriteFileSafely(path, bytes, *SystemFileReplacement());
}

void WriteFileSafely(const std::string& path, std::string_view bytes, FileReplacement& replacement) {
  const FileState state = StateOfFile(path);
  if (state.exists && !state.isRegular) {
    throw RuntimeError(ErrorNumber::kPathFileAccess,
                       fmt::format("{}: {}", path, state.isFolder ? "is a folder" : "is not a regular file"));
  }
  if (state.exists) {
    RequireWritable(path);  // replacing it would not ask
  }
  Replace(ResolveLinks(path), state.mode, bytes, replacement);
}

void WriteScratchFile(const std::string& path, std::string_view bytes) {
  constexpr std::uint32_t kOwnerOnly = 0600;
  Replace(path, kOwnerOnly, bytes, *SystemFileReplacement());
}

}  // namespace korva
