#include "commands/Batch.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <system_error>
#include <thread>

#include "commands/FileCommands.h"
#include "commands/PrivateFiles.h"
#include "core/FileNames.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/ProjectFile.h"
#include "input/FormNotices.h"

namespace korva {

namespace {

// A batch asks nobody: the rows hold the messages.
class SilentMessages final : public MessagePort {
 public:
  MessageAnswer Show(const Message&) override { return MessageAnswer::kCancel; }
};

// Adds the project files in `folder` and below it. A folder that cannot be read stands among them itself, so
// that its row tells why. Links to folders are not followed.
void AddFilesOfFolder(const std::string& folder, std::vector<std::string>& files) {
  try {
    const FolderContent content = ReadFolder(folder);
    for (const std::string& name : content.Folders) {
      if (const std::string below = NameWithin(folder, name); !IsLink(below)) {
        AddFilesOfFolder(below, files);
      }
    }
    for (const std::string& name : content.Files) {
      if (HasProjectExtension(name)) {
        files.push_back(NameWithin(folder, name));
      }
    }
  } catch (const RuntimeError&) {
    files.push_back(folder);
  }
}

// The factors of a laminated run in the traditional one's places; its remnants by their retreat.
void FillLaminated(BatchRow& row, const StrondResults& results) {
  for (int c = kDevelopment; c <= kRetreat; ++c) {
    const int stage = c - kDevelopment;
    row.SFKorva[c] = results.StrondSF[stage];
    for (int k = kFirstSide; k <= kSecondSide; ++k) {
      row.BarrierSF[c][k] = static_cast<double>(results.StrondBarrierSF[stage][k - kFirstSide]);
      row.RemnantSF[k] = static_cast<double>(results.StrondRemnantSF[stage][k - kFirstSide]);
    }
  }
}

void FillTraditional(BatchRow& row, const Results& results) {
  row.SFKorva = results.SFKorva;
  row.BarrierSF = results.BarrierSF;
  row.RemnantSF = results.RemnantSF;
}

void FillRun(BatchRow& row, const Evaluated& evaluated, const Project& project,
             const OptionSettings& options) {
  const bool laminatedAlone = !UsesTraditional(evaluated.Model);
  if (laminatedAlone) {
    FillLaminated(row, evaluated.Laminated.Results);
  } else {
    FillTraditional(row, evaluated.Run.Out);
  }
  row.ShownSF = ShownFactors(evaluated, laminatedAlone, options);
  if (UsesLaminated(evaluated.Model)) {
    row.Laminated = evaluated.Laminated.Results;
  }
  row.LoadCond = evaluated.Run.Work.LoadCond;
  row.LastCase = LastCaseShown(project, evaluated.Run.Work);
  const auto& flags = evaluated.Rules.RuleFlags;
  for (int flag = flags.kFirst; flag <= flags.kLast; ++flag) {
    if (flags[flag]) {
      row.RuleFlags.push_back(flag);
    }
  }
}

// Opens and evaluates the file that `korva` names.
BatchRow EvaluateNamedFile(Korva& korva, const Settings& settings, std::optional<OverburdenModel> calcMode) {
  BatchRow row;
  SilentMessages silent;
  try {
    if (!FileOpen(korva, silent)) {
      row.Failure = kInvalidFormat;
      return row;
    }
    row.Read = true;
    Project& project = korva.ProjectCalc;
    project.CalcMode = calcMode.value_or(project.CalcMode);
    row.Title = korva.Stored.ProjectTitle;
    row.Units = korva.Stored.ProjectUnits;
    row.CalcMode = project.CalcMode;
    const auto files = PrivateFilesOf(korva);
    Evaluated evaluated = EvaluateProject(korva, project.CalcMode);
    row.Refusal = std::move(evaluated.Refusal);
    if (!row.Refusal) {
      FillRun(row, evaluated, project, settings.Options);
      for (const FormNotice& notice : FormNotices(project)) {
        row.Notices.push_back(notice.Text);
      }
    }
  } catch (const RuntimeError& error) {
    row.Error = error;
  } catch (const std::bad_alloc&) {
    row.Error = RuntimeError(ErrorNumber::kOutOfMemory);
  }
  return row;
}

BatchRow EvaluateFile(const std::string& file, const Settings& settings,
                      std::optional<OverburdenModel> calcMode) {
  Korva korva;
  korva.Preferences = settings;
  korva.ProjectFileName = file;
  BatchRow row = EvaluateNamedFile(korva, settings, calcMode);
  row.File = file;
  std::vector<std::string> notices;
  for (const FileNotice& notice : korva.FileNotices) {
    notices.push_back(fmt::format("line {}: {}", notice.line, notice.text));
  }
  row.Notices.insert(row.Notices.begin(), notices.begin(), notices.end());
  return row;
}

}  // namespace

std::vector<std::string> FindProjectFiles(const std::vector<std::string>& paths) {
  std::vector<std::string> files;
  for (const std::string& path : paths) {
    if (FolderExists(path)) {
      AddFilesOfFolder(path, files);
    } else {
      files.push_back(path);
    }
  }
  std::sort(files.begin(), files.end());
  files.erase(std::unique(files.begin(), files.end()), files.end());
  return files;
}

std::vector<BatchRow> RunBatch(const std::vector<std::string>& files, const Settings& settings,
                               std::optional<OverburdenModel> calcMode, unsigned jobs,
                               ProgressPort& progress) {
  std::vector<BatchRow> rows(files.size());
  std::atomic<std::size_t> next = 0;
  std::mutex reporting;
  std::size_t done = 0;
  const auto work = [&] {
    for (std::size_t i = next++; i < files.size(); i = next++) {
      rows[i] = EvaluateFile(files[i], settings, calcMode);
      const std::scoped_lock lock(reporting);
      progress.Advance(++done, files.size());
    }
  };
  std::vector<std::jthread> threads;
  for (unsigned job = 1; job < std::min<std::size_t>(jobs, files.size()); ++job) {
    try {
      threads.emplace_back(work);
    } catch (const std::system_error&) {
      break;  // the threads there are do all of it
    }
  }
  work();
  threads.clear();  // waits for all
  return rows;
}

}  // namespace korva
