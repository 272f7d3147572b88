// Stand-ins for what leaves the process: they succeed, fail and take their time by chance.
#pragma once

#include <QImage>
#include <QTimer>
#include <memory>
#include <utility>

#include "core/Ports.h"
#include "core/RuntimeError.h"
#include "desktop/RandomActionsWorld.h"
#include "desktop/services/PicturePrinter.h"

namespace korva::desktop::random {

class SomePrinter final : public PrinterPort, public PicturePrinter {
 public:
  explicit SomePrinter(World& world) : world_(world) {}

  bool SetUp() override { return Choose(); }
  bool Choose() override {
    MayFail();
    return world_.Random.Chance(70);
  }
  std::optional<PaperSize> Paper() override {
    return world_.Random.Chance(80) ? std::optional(world_.Random.Chance(50) ? kA4Paper : kLetterPaper)
                                    : std::nullopt;
  }
  void Print(const std::vector<PrintedSheet>& /*sheets*/, const std::string& /*title*/) override {
    MayFail();
  }
  bool PrintPicture(const QString& /*title*/, const Paint& paint) override {
    if (!Choose()) {
      return false;
    }
    QImage sheet(600, 400, QImage::Format_RGB32);
    paint(sheet, sheet.rect());
    return true;
  }

 private:
  void MayFail() {
    if (world_.Random.Chance(20)) {
      throw RuntimeError(ErrorNumber::kPrinter, "out of paper");
    }
  }

  World& world_;
};

class SomePrograms final : public DocumentPort, public ProgramPort {
 public:
  explicit SomePrograms(World& world) : world_(world) {}
  bool Open(const std::string& /*file*/) override { return world_.Random.Chance(50); }
  bool OpenPage(const std::string& /*address*/) override { return world_.Random.Chance(50); }
  bool Run(const std::string& /*program*/, const std::vector<std::string>& /*arguments*/) override {
    return world_.Random.Chance(50);
  }

 private:
  World& world_;
};

// A server that answers late, wrongly or not at all.
class SomeFetches final : public FetchPort {
 public:
  explicit SomeFetches(World& world) : world_(world) {}

  std::unique_ptr<Running> Fetch(const FetchQuestion& /*question*/,
                                 std::function<void(std::uint64_t)> progress,
                                 std::function<void(FetchAnswer)> done) override {
    auto running = std::make_unique<Waiting>();
    QObject* end = &running->End;
    constexpr std::uint64_t kSome = 1000;
    QTimer::singleShot(world_.Random.Between(0, 300), end, [progress] { progress(kSome); });
    QTimer::singleShot(world_.Random.Between(0, 600), end, [answer = SomeAnswer(), done] { done(answer); });
    return running;
  }

 private:
  struct Waiting final : Running {
    QObject End;
  };

  FetchAnswer SomeAnswer() {
    static const std::vector<std::string> bytes = {
        "1106\r\n", "1105", "", "9", "99999999999", "<html>", std::string(5000, '7')};
    return world_.Random.Chance(70) ? FetchAnswer{true, world_.Random.Pick(bytes), {}}
                                    : FetchAnswer{false, {}, "the server did not answer"};
  }

  World& world_;
};

}  // namespace korva::desktop::random
