#include <fmt/format.h>

#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "files/FileLock.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

constexpr std::uint64_t kLargestResult = 1 << 20;

// A temporary folder in which it stands is there, or just being removed with all that it holds, and is not
// made again.
void MakeFolderOf(const std::string& path, SolverFolder place) {
  const auto make = place == SolverFolder::kUserTemporary ? MakeFolder : MakeFolderPath;
  make(FolderOf(path), "the folder cannot be made");
}

// So that a run that leaves nothing cannot be taken for the one before it.
void RenameEarlierResult(const std::string& result) {
  if (StateOfFile(result).exists) {
    RenameFile(result, result + ".old", "the result of an earlier run cannot be renamed");
  }
}

// Held while the run lasts, by a file beside the exchange file.
std::unique_ptr<FileLock> LockRun(const std::string& exchange) {
  const std::string lockFile = exchange + ".lock";
  auto lock = TryLock(lockFile);
  if (!lock && StateOfFile(lockFile).exists) {
    throw RuntimeError(
        ErrorNumber::kFileAlreadyOpen,
        fmt::format("{}: a project of this name is being calculated by another run", exchange));
  }
  return lock;
}

}  // namespace

StrondRun RunStrond2D(const Project& project, UnitSystem units, const std::string& projectPath,
                      const StrondPlace& place, const std::function<int(const std::string&)>& solver) {
  const std::string exchange = StrondInputPath(projectPath, ".KVSD", place);
  StrondRun run = {
      StrondOutputPath(projectPath, ".OUT", place), StrondResultPath(projectPath, ".CSV", place), {}};
  const std::string line = StrondLine(project, units);
  MakeFolderOf(exchange, place.iOptDir);
  const auto lock = LockRun(exchange);
  RenameEarlierResult(run.StrondResultFile);
  WriteFileSafely(exchange, line);
  const int status = solver(exchange);
  if (!StateOfFile(run.StrondResultFile).exists) {
    const std::string reason = SolverStatusText(status);
    throw RuntimeError(SolverStatusError(status),
                       fmt::format("the solver left no result file {}{}{}", run.StrondResultFile,
                                   reason.empty() ? "" : ": ", reason));
  }
  run.Results = ReadStrondResults(ReadWholeFile(run.StrondResultFile, kLargestResult), run.StrondResultFile);
  return run;
}

}  // namespace korva
