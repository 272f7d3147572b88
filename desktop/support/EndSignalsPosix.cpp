#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "desktop/support/EndSignals.h"

namespace korva::desktop {

namespace {

constexpr std::array kEndSignals = {SIGTERM, SIGHUP, SIGINT};
constexpr unsigned kExitTimeout = 5;  // seconds for an event loop that does not come round

std::array<int, 2> signalPipe = {-1, -1};  // a handler reaches nothing else

void NotifyEventLoop(int number) {
  const int code = errno;
  const auto byte = static_cast<char>(number);
  [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
  ::alarm(kExitTimeout);
  errno = code;
}

void EndBy(int number) {
  static_cast<void>(std::signal(number, SIG_DFL));
  static_cast<void>(std::raise(number));
}

}  // namespace

EndSignals::EndSignals(std::function<void()> keep) : keep_(std::move(keep)) {
  if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return;
  }
  notifier_ = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
    char number = 0;
    if (::read(signalPipe[0], &number, 1) == 1) {
      keep_();
      EndBy(number);
    }
  });
  for (const int number : kEndSignals) {
    struct sigaction before {};
    struct sigaction action {};
    action.sa_handler = NotifyEventLoop;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigemptyset(&action.sa_mask);
    if (::sigaction(number, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
      ::sigaction(number, &action, nullptr);
    }
  }
}

EndSignals::~EndSignals() {
  if (!notifier_) {
    return;
  }
  for (const int number : kEndSignals) {
    struct sigaction now {};
    if (::sigaction(number, nullptr, &now) == 0 && now.sa_handler == NotifyEventLoop) {
      static_cast<void>(std::signal(number, SIG_DFL));
    }
  }
  notifier_.reset();
  for (int& end : signalPipe) {
    ::close(std::exchange(end, -1));
  }
}

}  // namespace korva::desktop
