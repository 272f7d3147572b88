#include "services/UpdateRules.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "core/Text.h"
#include "core/Version.h"
#include "files/FieldCursor.h"

namespace korva {

namespace {

constexpr std::string_view kServer = KORVA_UPDATE_SERVER;
constexpr std::string_view kPublicKey = KORVA_UPDATE_KEY;
constexpr std::size_t kMostDigits = 9;

void CutAtEnd(std::string_view& text, char c) {
  if (text.size() > 1 && text.back() == c) {
    text.remove_suffix(1);
  }
}

bool IsDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

UpdateSource BuiltInUpdateSource() {
  const std::string server(kServer);
  return {server + "/pillar-stability-strond/", server + "/wp-content/uploads/2023/01/",
          std::string(kPublicKey)};
}

bool IsTrustedConnection(std::string_view scheme, std::string_view host) {
  if (scheme == "https") {
    return !host.empty();
  }
  return scheme == "http" && (host == "127.0.0.1" || host == "::1" || host == "localhost");
}

bool CanExist(std::string_view host) {
  while (host.ends_with('.')) {
    host.remove_suffix(1);
  }
  return host != "invalid" && !host.ends_with(".invalid");
}

bool MayRedirect(std::string_view scheme, std::string_view newScheme, std::string_view newHost) {
  return IsTrustedConnection(newScheme, newHost) && (scheme != "https" || newScheme == "https");
}

std::string ReadServerVersion(std::string_view versionFile) {
  if (versionFile.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    return {};
  }
  std::vector<FileNotice> notices;
  std::string_view version =
      FieldCursor(versionFile, std::string(kVersionFileName), notices).ReadText("the server's version");
  CutAtEnd(version, '\n');
  CutAtEnd(version, '\r');
  return version.size() <= kMostDigits && IsDigits(version) ? std::string(version) : std::string();
}

bool IsNewerVersion(std::string_view server, std::string_view own) {
  return server > own;
}

std::string SetupName(std::string_view version) {
  return fmt::format("{}{}.exe", ExeName, version);
}

std::string DownloadsFolder(const std::string& dataRoot) {
  return dataRoot + "../../Downloads/";
}

int ProgressOfDownload(std::uint64_t bytes) {
  static constexpr std::uint64_t kBlock = 16384;
  return static_cast<int>((bytes + kBlock - 1) / kBlock % 100);
}

std::string NewVersionQuestion() {
  return fmt::format(
      "A new KORVA-STROND version is available. {0}"
      "Note that in order to download and install you may need administrator priviledges and/or Windows may ask "
      "you for permission to do so. {0}Proceed with Download and Install?",
      kLineEnd);
}

std::string ReleasedText(std::chrono::sys_days today) {
  return fmt::format(
      "This version was released {0} days ago. {1}{1}"
      "Although major updates may not be scheduled, interim updates may be released with bug fixes. "
      "Check for an updated version by visiting the program web page below or click on 'Check for updates'.  "
      "You may manually update the program by downloading and installing the new setup file.",
      (today - std::chrono::sys_days(kRevisionDate)).count(), kLineEnd);
}

std::string CurrentVersionText() {
  return fmt::format("Current Program Version: {}{}Current Revision Date: {}", ProgramVersionText(true),
                     kLineEnd, RevisionDateText());
}

std::string VersionsText(std::string_view server) {
  return fmt::format("Server Version: {} / Current Version: {}", server, ProgramVersionText(false));
}

}  // namespace korva
