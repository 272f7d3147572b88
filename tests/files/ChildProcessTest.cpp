#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <stdexcept>

#include "files/ChildProcess.h"
#include "support/ExpectError.h"

namespace korva {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

ChildCall Shell(std::string script) {
  return {"/bin/sh", {"-c", std::move(script)}, 1'000'000, milliseconds{20'000}};
}

void NoWatch() {}

bool HasChildren() {
  return ::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD;
}

TEST(RunChild, GivesOutputAndStatus) {
  const ChildResult plain = RunChild(Shell("printf 'a\\0b'; echo lost >&2; exit 3"), NoWatch);
  EXPECT_EQ(plain.End, ChildEnd::kExited);
  EXPECT_EQ(plain.Status, 3);
  EXPECT_EQ(plain.Output, std::string("a\0b", 3));
  EXPECT_EQ(RunChild(Shell("head -c 300000 /dev/zero"), NoWatch).Output.size(), 300'000U);
  EXPECT_EQ(RunChild(Shell("kill -9 $$"), NoWatch).End, ChildEnd::kKilled);
  EXPECT_FALSE(HasChildren());
}

TEST(RunChild, HandsNothingOn) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const ChildResult result = RunChild(Shell("cat; ls /proc/self/fd"), NoWatch);
  EXPECT_EQ(result.Output, "0\n1\n2\n3\n") << "3 is the folder that ls lists";
  ::close(pipe[0]);
  ::close(pipe[1]);
}

TEST(RunChild, EndsWhatDoesNotEnd) {
  const auto start = steady_clock::now();
  ChildCall call = Shell("exec sleep 60");
  call.Limit = milliseconds{150};
  EXPECT_EQ(RunChild(call, NoWatch).End, ChildEnd::kTookTooLong);
  call.Arguments[1] = "exec sleep 60 >&-";
  EXPECT_EQ(RunChild(call, NoWatch).End, ChildEnd::kTookTooLong) << "its output is closed";
  call = Shell("exec cat /dev/zero");
  EXPECT_EQ(RunChild(call, NoWatch).End, ChildEnd::kPrintedTooMuch);
  int watched = 0;
  EXPECT_THROW(RunChild(Shell("exec cat /dev/zero >/dev/null"),
                        [&watched] {
                          if (++watched == 3) {
                            throw std::runtime_error("ended");
                          }
                        }),
               std::runtime_error);
  EXPECT_LT(steady_clock::now() - start, milliseconds{10'000});
  EXPECT_FALSE(HasChildren());
}

TEST(RunChild, NamesAProgramThatIsNotThere) {
  ChildCall call = Shell("");
  call.Program = "/bin/no such program";
  EXPECT_NE(ExpectError(ErrorNumber::kFileNotFound, [&] { RunChild(call, NoWatch); }).find("no such program"),
            std::string::npos);
  EXPECT_FALSE(HasChildren());
}

}  // namespace
}  // namespace korva
