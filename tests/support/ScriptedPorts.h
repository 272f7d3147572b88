// All ports as scripts and records.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/Ports.h"
#include "core/RuntimeError.h"
#include "support/ScriptedMessages.h"

namespace korva {

// Answers file questions with the names given, nothing for a cancelled dialog. A question that nobody
// expected and an answer that nobody asked for fail the test.
class ScriptedFiles final : public FileChoicePort {
 public:
  ScriptedFiles() = default;
  ScriptedFiles(const ScriptedFiles&) = delete;
  ScriptedFiles& operator=(const ScriptedFiles&) = delete;
  ~ScriptedFiles() override { EXPECT_TRUE(answers_.empty()) << "a file question never came"; }

  void Expect(std::optional<std::string> answer) { answers_.push_back(std::move(answer)); }

  std::optional<std::string> ChooseFile(const FileQuestion& question) override {
    Asked.push_back(question);
    if (WhileShown) {
      WhileShown();
    }
    if (answers_.empty()) {
      ADD_FAILURE() << "nobody expected a file question: " << question.Title;
      return std::nullopt;
    }
    auto answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }

  std::vector<FileQuestion> Asked;
  std::function<void()> WhileShown;  // what happens while a file is chosen

 private:
  std::deque<std::optional<std::string>> answers_;
};

// Gives the next scripted answers, in their order.
class ScriptedValues final : public ValuePort {
 public:
  ~ScriptedValues() override { EXPECT_TRUE(Fonts.empty() && Texts.empty()) << "an answer was not asked for"; }
  std::optional<FontSettings> ChooseFont(const FontSettings&) override { return Next(Fonts); }
  std::optional<std::string> EnterText(const TextQuestion& question) override {
    Asked = question;
    return Next(Texts);
  }
  std::deque<std::optional<FontSettings>> Fonts;
  std::deque<std::optional<std::string>> Texts;
  TextQuestion Asked;

 private:
  template <class Answer>
  static std::optional<Answer> Next(std::deque<std::optional<Answer>>& answers) {
    if (answers.empty()) {
      ADD_FAILURE() << "nobody expected to be asked for a value";
      return std::nullopt;
    }
    auto answer = std::move(answers.front());
    answers.pop_front();
    return answer;
  }
};

class KeptClipboard final : public ClipboardPort {
 public:
  void SetText(std::string_view text) override { Text = text; }
  void SetPicture(std::string_view png) override { Picture = png; }
  std::string Text;
  std::string Picture;
};

class CountedBusy final : public BusyPort {
 public:
  ~CountedBusy() override { EXPECT_EQ(Depth, 0) << "the busy pointer was left on"; }
  void Begin() override { ++Depth; }
  void End() override { --Depth; }
  int Depth = 0;
};

class KeptDocuments final : public DocumentPort {
 public:
  bool Open(const std::string& file) override {
    Opened.push_back(file);
    return CanOpen;
  }
  bool OpenPage(const std::string& address) override { return Open(address); }
  std::vector<std::string> Opened;
  bool CanOpen = true;
};

class KeptPrograms final : public ProgramPort {
 public:
  bool Run(const std::string& program, const std::vector<std::string>& arguments) override {
    Calls.push_back({program});
    Calls.back().insert(Calls.back().end(), arguments.begin(), arguments.end());
    return CanRun;
  }
  std::vector<std::vector<std::string>> Calls;  // program and arguments
  bool CanRun = true;
};

// Keeps what is printed. Its dialogs are confirmed unless Cancels is set; the next Failures calls fail.
class KeptPrinter final : public PrinterPort {
 public:
  struct Document {
    std::vector<PrintedSheet> Sheets;
    std::string Title;
  };

  bool SetUp() override { return Dialog("set-up"); }
  bool Choose() override { return Dialog("print"); }
  std::optional<PaperSize> Paper() override { return Loaded; }
  void Print(const std::vector<PrintedSheet>& sheets, const std::string& title) override {
    if (Failures > 0) {
      --Failures;
      throw RuntimeError(ErrorNumber::kPrinter, "out of paper");
    }
    Printed.push_back({sheets, title});
  }

  std::vector<Document> Printed;
  std::vector<std::string> Dialogs;
  bool Cancels = false;
  int Failures = 0;
  std::optional<PaperSize> Loaded = kLetterPaper;

 private:
  bool Dialog(const char* kind) {
    Dialogs.emplace_back(kind);
    return !Cancels;
  }
};

// Answers fetches one by one with what the test gives them.
class ScriptedFetches final : public FetchPort {
 public:
  std::unique_ptr<Running> Fetch(const FetchQuestion& question, std::function<void(std::uint64_t)> progress,
                                 std::function<void(FetchAnswer)> done) override {
    Asked.push_back(question);
    tell_ = std::move(progress);
    done_ = std::move(done);
    return std::make_unique<Ending>(*this);
  }

  bool IsRunning() const { return done_ != nullptr; }
  void Tell(std::uint64_t bytes) const { tell_(bytes); }
  void Give(std::string bytes) { Answer({true, std::move(bytes), {}}); }
  void Fail(std::string reason) { Answer({false, {}, std::move(reason)}); }

  std::vector<FetchQuestion> Asked;

 private:
  struct Ending final : Running {
    explicit Ending(ScriptedFetches& port) : Port(port), Number(port.Asked.size()) {}
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;
    ~Ending() override {
      if (Port.Asked.size() == Number) {
        Port.done_ = nullptr;
      }
    }
    ScriptedFetches& Port;
    std::size_t Number;
  };

  void Answer(FetchAnswer answer) {
    ASSERT_TRUE(IsRunning()) << "nothing is being fetched";
    std::exchange(done_, nullptr)(std::move(answer));
  }

  std::function<void(std::uint64_t)> tell_;
  std::function<void(FetchAnswer)> done_;
};

struct ScriptedPorts {
  ScriptedMessages Messages;
  ScriptedFiles Files;
  KeptClipboard Clipboard;
  KeptPrograms Programs;
  CountedBusy Busy;
  KeptDocuments Documents;
  KeptPrinter Printer;
  ScriptedFetches Fetches;
  ScriptedValues Values;
  Ports All{Messages, Files, Clipboard, Programs, Busy, Documents, Printer, Fetches, Values};
};

}  // namespace korva
