// How a call of the command ends that is ended from outside: by a signal, or by a reader who has seen enough.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <array>
#include <filesystem>
#include <thread>

#include "files/ProjectFile.h"
#include "support/Panels.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

// A laminated call whose standard output is a pipe that takes nothing more.
class EndedCall : public testing::Test {
 protected:
  EndedCall() {
    std::filesystem::create_directory(folder_ / "tmp");
    Project panel = test::DevelopmentPanel();
    panel.CalcMode = kLaminatedModel;
    folder_.Put("panel.KVL", ComposeProject(test::Stored(panel)));
    EXPECT_EQ(::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK), 0);
    while (::write(pipe_[1], "full", 1) == 1) {
    }
    for (const int end : pipe_) {
      ::fcntl(end, F_SETFL, 0);  // from here on they wait
    }
  }
  ~EndedCall() override {
    CloseEnd(0);
    CloseEnd(1);
  }

  void CloseEnd(std::size_t end) { ::close(std::exchange(pipe_.at(end), -1)); }

  bool HasPrivateFolder() const { return !std::filesystem::is_empty(folder_ / "tmp"); }

  // Starts the call, which ignores `ignored`.
  pid_t Start(int ignored = 0) const {
    const pid_t child = ::fork();
    if (child == 0) {
      for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {  // whatever the tests were started with
        ::signal(signal, signal == ignored ? SIG_IGN : SIG_DFL);
      }
      detail::BecomeProgram(
          {KORVA_PROGRAM, {"report", "panel.KVL"}, folder_ / "", {{"TMPDIR", folder_ / "tmp"}}, {}}, pipe_[1],
          ::open("/dev/null", O_WRONLY));
    }
    return child;
  }

  // Lets it come to where it prints, with its private folder there.
  void AwaitPrivateFolder(pid_t child) const {
    while (!HasPrivateFolder() && ::waitpid(child, nullptr, WNOHANG) == 0) {
      std::this_thread::yield();
    }
    ASSERT_TRUE(HasPrivateFolder());
  }

  static int StatusOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return status;
  }

  const TempFolder folder_;
  std::array<int, 2> pipe_{};
};

TEST_F(EndedCall, ASignalLeavesNoFolderBehind) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    const pid_t child = Start();
    AwaitPrivateFolder(child);
    ::kill(child, signal);
    const int status = StatusOf(child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
    EXPECT_FALSE(HasPrivateFolder()) << signal;
  }
}

TEST_F(EndedCall, ASignalThatIsIgnoredStaysIgnored) {
  const pid_t child = Start(SIGHUP);
  AwaitPrivateFolder(child);
  ::kill(child, SIGHUP);
  CloseEnd(1);
  std::array<char, 4096> printed{};
  while (::read(pipe_[0], printed.data(), printed.size()) > 0) {
  }
  const int status = StatusOf(child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_FALSE(HasPrivateFolder());
}

TEST_F(EndedCall, AReaderWhoHasSeenEnoughEndsItQuietly) {
  const pid_t child = Start();
  AwaitPrivateFolder(child);
  CloseEnd(0);
  const int status = StatusOf(child);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGPIPE);
  EXPECT_FALSE(HasPrivateFolder());
}

}  // namespace
}  // namespace korva
