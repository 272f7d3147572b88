// The result file: where it lies and what it holds.
#pragma once

#include <filesystem>
#include <string>

#include "Factors.h"

namespace korva::laminated {

// The result file that belongs to an exchange file. It lies in the exchange file's folder, or above it if
// that folder carries the exchange file's stem; the documents' own folder "MyFolvane/Temp" never counts as
// such a one. In the folder of the running program its name has two dots.
std::filesystem::path ResultPath(const std::filesystem::path& exchange, const std::filesystem::path& program);

// A heading line and 44 items by lines.
std::string ResultText(const Factors& factors);

// Writes beside the target, flushes, and renames over it. Failure KORVASTROND_RESULT_NOT_WRITTEN.
void WriteResult(const std::filesystem::path& path, const std::string& text);

}  // namespace korva::laminated
