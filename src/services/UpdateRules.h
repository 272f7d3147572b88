// The rules and texts of the update check: what may be fetched, which version is newer, what people are told.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/UpdateSource.h"

namespace korva {

inline constexpr std::string_view kVersionFileName = "korvastrond_version.txt";

// Most bytes that are taken of each kind of file.
inline constexpr std::uint64_t kLargestVersionFile = 1024;
inline constexpr std::uint64_t kLargestSignature = 4096;
inline constexpr std::uint64_t kLargestSetup = std::uint64_t{256} << 20;

// The addresses and the key that this program was built with.
UpdateSource BuiltInUpdateSource();

// Whether a file may be fetched from `host` by `scheme`, both in small letters: https, and plain http from
// this machine itself.
bool IsTrustedConnection(std::string_view scheme, std::string_view host);
// Whether a server of that name can exist at all: names in ".invalid" are set aside so that none does.
bool CanExist(std::string_view host);
// Whether a server may send a fetch by `scheme` on to `newScheme` and `newHost`: a trusted connection that is
// no less safe.
bool MayRedirect(std::string_view scheme, std::string_view newScheme, std::string_view newHost);

// The server's version out of the version file: its first text field, whose line end is cut. Empty if that is
// not 1 to 9 digits, such as an error page.
std::string ReadServerVersion(std::string_view versionFile);

// Whether the server's version sorts after `own`, as text: "999" is newer than "1105". An empty one is not.
bool IsNewerVersion(std::string_view server, std::string_view own);

// The name of the setup program of a version, which is digits.
std::string SetupName(std::string_view version);

// The folder that setup programs are kept in, beside the documents folder; with a separator at its end.
std::string DownloadsFolder(const std::string& dataRoot);

// The bar of a download whose length nobody knows: blocks of 16384 bytes, modulo 100.
int ProgressOfDownload(std::uint64_t bytes);

// Texts. The question of the check at the start; what the window says of this version, of the server's.
std::string NewVersionQuestion();
std::string ReleasedText(std::chrono::sys_days today);
std::string CurrentVersionText();
std::string VersionsText(std::string_view server);

}  // namespace korva
