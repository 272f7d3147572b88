// Pages and warnings of the shipped examples, character by character. scripts/renew-goldens rewrites what
// they are compared with; read its changes as a diff before committing them.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "commands/Calculate.h"
#include "commands/FileCommands.h"
#include "commands/PrivateFiles.h"
#include "core/FilePaths.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

class KeptMessage final : public MessagePort {
 public:
  MessageAnswer Show(const Message& message) override {
    Text = message.text;
    return MessageAnswer::kOk;
  }
  std::string Text;
};

// The pages with a form feed line between two and in front of the warnings, or why there are none.
std::string OutputOf(const std::string& example) {
  Korva korva;
  korva.ProjectFileName = example;
  KeptMessage message;
  std::string text;
  if (!FileOpen(korva, message) || !CalculateStabilityFactors(korva, message)) {
    text = message.Text + "\n";
  } else {
    for (const std::string& page : korva.OutBuf) {
      text.append(text.empty() ? "" : "\f\n").append(page);
    }
    if (!korva.WarningText.empty()) {
      text.append("\f\nKORVA Warnings\n").append(korva.WarningText);
    }
  }
  std::erase(text, '\r');
  return text;
}

// Pages 1 to 4 of both models side by side, which holds every number of the laminated one.
std::string ComparedOutputOf(const std::string& example) {
  Korva korva;
  korva.ProjectFileName = example;
  KeptMessage message;
  korva.ProjectCalc.CalcMode = kComparedModels;
  const auto files = PrivateFilesOf(korva);
  if (!FileOpen(korva, message) || !CalculateWorkingCopy(korva, message, kComparedModels)) {
    return message.Text + "\n";
  }
  std::string text;
  for (int page = 1; page <= 4; ++page) {
    text.append(text.empty() ? "" : "\f\n").append(korva.OutBuf[page]);
  }
  std::erase(text, '\r');
  return text;
}

std::string Golden(const std::string& name) {
  std::ifstream file(KORVA_GOLDEN "/" + name + ".txt", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(GoldenPages, OfEveryExample) {
  fs::current_path(KORVA_EXAMPLES);  // page 0 shows the bare name
  for (const auto& entry : fs::directory_iterator(".")) {
    if (entry.path().extension() == ".KVL") {
      const std::string stem = Utf8Of(entry.path().stem());
      EXPECT_EQ(OutputOf(stem + ".KVL"), Golden(stem)) << stem;
      EXPECT_EQ(ComparedOutputOf(stem + ".KVL"), Golden(stem + ".compared")) << stem;
    }
  }
}

}  // namespace
}  // namespace korva
