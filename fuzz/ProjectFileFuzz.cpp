// Any bytes as a project file, this program's or the sibling's: read, written, read again, converted and
// calculated. Only run-time errors may come of it, the text written has to read back, and no page may show a
// number without a value.
#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "commands/Calculate.h"
#include "core/Description.h"
#include "core/Encoding.h"
#include "core/RuntimeError.h"
#include "files/ProjectFile.h"
#include "files/VoskFile.h"
#include "input/ConvertProjectUnits.h"

namespace {

using namespace korva;

class SilentMessages final : public MessagePort {
 public:
  MessageAnswer Show(const Message&) override { return MessageAnswer::kCancel; }
};

// Whether "inf" or "nan" stands in `text` as a word of its own.
bool ShowsNoNumber(const std::string& text) {
  std::string words;
  for (const char c : " " + text + " ") {
    const auto byte = static_cast<unsigned char>(c);
    words += std::isalpha(byte) != 0 ? static_cast<char>(std::tolower(byte)) : ' ';
  }
  return words.find(" inf ") != words.npos || words.find(" nan ") != words.npos;
}

StoredProject ReadText(const std::string& text) {
  std::vector<FileNotice> notices;
  StoredProject project;
  const auto format = DetectProjectFormat(text, "fuzz.kvl");
  if (format) {
    ReadProject(text, "fuzz.kvl", *format, project, notices);
  } else if (DetectVoskFormat(text, "fuzz.vsk")) {
    ReadVoskProject(text, "fuzz.vsk", project, notices);
  } else {
    throw RuntimeError(ErrorNumber::kTypeMismatch);
  }
  Require(notices.size() < 100, "few notices");
  NormalizeDescription(project);
  return project;
}

// A description is left out: its lines may be split once more at each reading. So is a loading condition
// beyond the last, which only the sibling's file can hold.
std::string Comparable(StoredProject project) {
  project.ProjectDescription.clear();
  project.ProjectInput.LoadingCondition =
      std::min(project.ProjectInput.LoadingCondition, PanelLoading::kWithBothSideGobs);
  return ComposeProject(project);
}

void CheckRoundTrip(const StoredProject& project) {
  const std::string bytes = FileBytesFromText(ComposeProject(project));
  StoredProject again;
  try {
    again = ReadText(TextFromFileBytes(bytes));
  } catch (const RuntimeError& error) {
    Require(false, error.what());
  }
  Require(Comparable(again) == Comparable(project), "a written project reads back");
}

void CheckPages(StoredProject project) {
  Korva korva;
  korva.Stored = std::move(project);
  korva.Stored.ProjectTitle.clear();
  korva.Stored.ProjectDescription.clear();
  korva.ProjectEmpty = false;
  SilentMessages silent;
  korva.Stored.ProjectInput.CalcMode = kTraditionalModel;
  if (!CalculateStabilityFactors(korva, silent)) {
    return;
  }
  for (const std::string& page : korva.OutBuf) {
    Require(!ShowsNoNumber(page), page);
  }
  Require(!ShowsNoNumber(korva.WarningText), korva.WarningText);
}

template <class Step>
void RuntimeErrorsAside(Step step) {
  try {
    step();
  } catch (const RuntimeError&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  StoredProject project;
  try {
    project = ReadText(TextFromFileBytes(bytes));
  } catch (const RuntimeError&) {
    return 0;
  }
  RuntimeErrorsAside([&] { CheckRoundTrip(project); });
  RuntimeErrorsAside([&] { CheckPages(project); });
  RuntimeErrorsAside([&] {
    const auto other = project.ProjectUnits == kMetric ? kEnglish : kMetric;
    ConvertProjectUnits(project, other);
    CheckRoundTrip(project);
    CheckPages(project);
  });
  return 0;
}
