#include "core/Description.h"

#include "core/Text.h"

namespace korva {

namespace {

constexpr std::size_t kLongestLine = 60;
constexpr std::size_t kLowestBreak = 40;

struct WrappedLine {
  std::string text;
  int count = 1;  // the number of pieces plus 1
};

// How many characters of `line` its next piece takes. A line that is cut ends after a blank at characters 40
// to 59, or hard at 60; the shorter rest of a line is treated in the same way, so it may be split once more.
std::size_t PieceLength(std::string_view line) {
  const std::string_view window = line.substr(0, BytesOfCharacters(line, kLongestLine - 1));
  const std::size_t last = BytesOfCharacters(line, kLongestLine - 1);
  if (last < line.size() && line[last] == ' ') {
    return kLongestLine;
  }
  const auto blank = window.rfind(' ');
  if (blank == std::string_view::npos) {
    return kLongestLine;
  }
  const std::size_t position = CharacterCount(window.substr(0, blank)) + 1;
  return position >= kLowestBreak ? position : kLongestLine;
}

WrappedLine WrapDescriptionLine(std::string_view line) {
  WrappedLine wrapped;
  while (!line.empty()) {
    const std::size_t bytes = BytesOfCharacters(line, PieceLength(line));
    wrapped.text.append(line.substr(0, bytes));
    ++wrapped.count;
    line.remove_prefix(bytes);
    if (!line.empty()) {
      wrapped.text.append(kLineEnd);
    }
  }
  return wrapped;
}

}  // namespace

void NormalizeDescription(StoredProject& project) {
  project.ProjectDescriptionLines = 2;
  std::string normalized;
  int lines = 2;
  for (std::string_view rest = project.ProjectDescription; !rest.empty();) {
    const SplitLine split = TakeLine(rest);
    rest = split.rest;
    const std::string_view trimmed = Trimmed(split.line);
    if (trimmed.empty()) {
      continue;
    }
    if (!normalized.empty()) {
      normalized.append(kLineEnd);
    }
    if (CharacterCount(trimmed) > kLongestLine) {
      const WrappedLine wrapped = WrapDescriptionLine(split.line);
      normalized += wrapped.text;
      lines += wrapped.count;
    } else {
      normalized.append(split.line);
      ++lines;
    }
  }
  project.ProjectDescription = std::move(normalized);
  project.ProjectDescriptionLines = lines;
}

}  // namespace korva
