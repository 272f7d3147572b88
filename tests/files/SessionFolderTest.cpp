#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>

#include "core/FileNames.h"
#include "files/FileLock.h"
#include "files/SessionFolder.h"
#include "support/TempFolder.h"

namespace korva {
namespace {

class Pipe {
 public:
  Pipe() { EXPECT_EQ(::pipe(ends_.data()), 0); }
  ~Pipe() {
    ::close(ends_[0]);
    CloseWriting();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  void Write(const std::string& line) const {
    EXPECT_EQ(::write(ends_[1], line.data(), line.size()), static_cast<ssize_t>(line.size()));
  }
  std::string Read(std::size_t most) const {
    std::string bytes(most, ' ');
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(::read(ends_[0], bytes.data(), most), 0)));
    return bytes;
  }
  void CloseWriting() {
    if (ends_[1] >= 0) {
      ::close(std::exchange(ends_[1], -1));
    }
  }

 private:
  std::array<int, 2> ends_{};
};

constexpr int kSessions = 6;
constexpr int kCopies = 9;

// One session that starts when `start` is closed, tells the contents of the copies that it got, and runs
// until `end` is closed.
pid_t StartSession(const std::string& folder, Pipe& start, Pipe& told, Pipe& end) {
  const pid_t child = ::fork();
  if (child == 0) {
    start.CloseWriting();
    end.CloseWriting();
    start.Read(1);
    SessionFolder session(folder);
    std::string got;
    for (const std::string& copy : session.TakeAbandoned()) {
      got += TempFolder::Bytes(copy);
    }
    told.Write(got + ".");
    end.Read(1);
    ::_exit(0);
  }
  return child;
}

int LocksHeld(const std::string& folder) {
  int held = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    held += entry.path().extension() == ".lock" && IsLocked(Utf8Of(entry.path())) ? 1 : 0;
  }
  return held;
}

TEST(SessionFolder, SessionsThatStartTogetherShareWhatIsLeftAndKeepTheirLocks) {
  const TempFolder place;
  for (int round = 0; round < 20; ++round) {
    const std::string folder = place / ("sessions" + std::to_string(round) + "/");
    std::filesystem::create_directory(folder);
    for (int i = 0; i < kCopies; ++i) {
      const std::string name = std::to_string(i) + "-" + std::to_string(i);
      std::ofstream(folder + name + ".KVL") << i;
      if (i % 2 == 0) {
        std::ofstream(folder + name + ".lock") << "of a session that was killed";
      }
    }
    Pipe start;
    Pipe told;
    Pipe end;
    std::vector<pid_t> children;
    for (int i = 0; i < kSessions; ++i) {
      children.push_back(StartSession(folder, start, told, end));
    }
    start.CloseWriting();
    std::string got;
    while (std::count(got.begin(), got.end(), '.') < kSessions) {
      got += told.Read(100);
    }
    std::erase(got, '.');
    std::sort(got.begin(), got.end());
    EXPECT_EQ(got, "012345678") << "each copy once";
    EXPECT_EQ(LocksHeld(folder), kSessions);
    end.CloseWriting();
    for (const pid_t child : children) {
      ::waitpid(child, nullptr, 0);
    }
    // Sessions that were ended before they had put their copies aside leave them to the next one.
    SessionFolder next(folder);
    EXPECT_EQ(next.TakeAbandoned().size(), static_cast<std::size_t>(kCopies));
    EXPECT_EQ(LocksHeld(folder), 1);
  }
}

TEST(SessionFolder, IsPrivateAndKeepsTwentyCopiesThatWereOffered) {
  const TempFolder place;
  const std::string folder = place / "sessions/";
  SessionFolder session(folder);
  EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
  const auto count = [&folder](std::string_view start, std::string_view extension) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      const std::string name = Utf8Of(entry.path().filename());
      files += name.starts_with(start) && name.ends_with(extension) ? 1 : 0;
    }
    return files;
  };
  std::set<std::string> names;
  for (int i = 0; i < 25; ++i) {
    place.Put("sessions/0-" + std::to_string(i) + ".KVL", "left");
    place.Put("sessions/0-" + std::to_string(i) + ".lock", "of a session that was killed");
    place.Put("sessions/" + FileBaseName(session.CopyPath(), false), "own, and newer");
    const auto taken = session.TakeAbandoned();
    ASSERT_EQ(taken.size(), 1U);
    names.insert(taken[0]);
    SessionFolder::RenameAsKept(taken[0]);
  }
  EXPECT_EQ(names.size(), 25U);
  EXPECT_EQ(count("kept-", ".KVL"), 20);
  EXPECT_EQ(count("", ".KVL"), 21);
  EXPECT_EQ(count("", ".lock"), 1);
}

}  // namespace
}  // namespace korva
