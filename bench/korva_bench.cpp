// Benchmarks of the engine: one evaluation, a set of pages, a file read, a batch.
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <filesystem>
#include <string>

#include "commands/Batch.h"
#include "commands/Calculate.h"
#include "commands/FileCommands.h"
#include "core/Encoding.h"
#include "core/FilePaths.h"
#include "files/FileReader.h"
#include "files/ProjectFile.h"
#include "model/KORVAmodel.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

class NoMessages final : public MessagePort {
 public:
  MessageAnswer Show(const Message& message) override {
    throw RuntimeError(ErrorNumber::kInvalidCall, message.text);
  }
};

// Nine pillar rows and two side gobs: the most that a project asks for.
Korva LargestExample() {
  Korva korva;
  korva.ProjectFileName = std::string(KORVA_EXAMPLES) + "/two-side-gobs.KVL";
  NoMessages messages;
  FileOpen(korva, messages);
  return korva;
}

void EvaluateBothCases(benchmark::State& state) {
  const Korva korva = LargestExample();
  Calculation run = PrepareCalculation(korva.ProjectCalc, korva.Stored.ProjectUnits).Run;
  for (auto _ : state) {
    RunCalculation(run);
    benchmark::DoNotOptimize(run.Out.SFKorva);
  }
}
BENCHMARK(EvaluateBothCases);

void PrepareAndEvaluate(benchmark::State& state) {
  const Korva korva = LargestExample();
  for (auto _ : state) {
    Prepared prepared = PrepareCalculation(korva.ProjectCalc, korva.Stored.ProjectUnits);
    RunCalculation(prepared.Run);
    benchmark::DoNotOptimize(prepared.Run.Out.SFKorva);
  }
}
BENCHMARK(PrepareAndEvaluate);

void CalculateSixPages(benchmark::State& state) {
  Korva korva = LargestExample();
  NoMessages messages;
  for (auto _ : state) {
    CalculateStabilityFactors(korva, messages);
    benchmark::DoNotOptimize(korva.OutBuf);
  }
}
BENCHMARK(CalculateSixPages);

void ParseProject(benchmark::State& state) {
  const std::string file = std::string(KORVA_EXAMPLES) + "/two-side-gobs.KVL";
  const std::string bytes = ReadWholeFile(file, kLargestProjectFile);
  for (auto _ : state) {
    const std::string text = TextFromFileBytes(bytes);
    StoredProject project;
    std::vector<FileNotice> notices;
    ReadProject(text, file, *DetectProjectFormat(text, file), project, notices);
    benchmark::DoNotOptimize(project);
  }
}
BENCHMARK(ParseProject);

void OpenProjectFile(benchmark::State& state) {
  Korva korva = LargestExample();
  NoMessages messages;
  for (auto _ : state) {
    FileOpen(korva, messages);
    benchmark::DoNotOptimize(korva.ProjectCalc);
  }
}
BENCHMARK(OpenProjectFile);

class NoProgress final : public ProgressPort {
 public:
  void Advance(std::size_t, std::size_t) override {}
};

// A folder of copies of one example, gone at the end.
class CopiedExamples {
 public:
  explicit CopiedExamples(std::int64_t count)
      : folder_(fs::temp_directory_path() / fmt::format("korva_bench_{}", count)) {
    fs::create_directories(folder_);
    for (std::int64_t i = 0; i < count; ++i) {
      fs::copy_file(std::string(KORVA_EXAMPLES) + "/two-side-gobs.KVL", folder_ / fmt::format("{:06}.KVL", i),
                    fs::copy_options::overwrite_existing);
    }
  }
  ~CopiedExamples() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  CopiedExamples(const CopiedExamples&) = delete;
  CopiedExamples& operator=(const CopiedExamples&) = delete;

  std::string Folder() const { return Utf8Of(folder_); }

 private:
  fs::path folder_;
};

void BatchOfFiles(benchmark::State& state) {
  const CopiedExamples examples(state.range(0));
  NoProgress progress;
  for (auto _ : state) {
    const auto files = FindProjectFiles({examples.Folder()});
    benchmark::DoNotOptimize(RunBatch(files, Settings{}, {}, 2, progress));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BatchOfFiles)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace korva

BENCHMARK_MAIN();
