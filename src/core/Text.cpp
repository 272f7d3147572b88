#include "core/Text.h"

#include <algorithm>

namespace korva {

namespace {

constexpr std::size_t kLeastWrapWidth = 21;

// Nearly every text is; then a character is a byte.
bool IsAscii(std::string_view text) {
  unsigned char all = 0;
  for (const char c : text) {
    all |= static_cast<unsigned char>(c);
  }
  return all < 0x80;
}

// The bytes of the character that begins at `at`: the lead byte and the continuations that it announces.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t announced = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  std::size_t length = 1;
  while (length < announced && at + length < text.size() && IsContinuation(text[at + length])) {
    ++length;
  }
  return length == announced ? length : 1;
}

std::string Padding(std::string_view text, std::size_t width, char fill) {
  const std::size_t length = CharacterCount(text);
  return std::string(width > length ? width - length : 0, fill);
}

// The byte position of the last blank among the first `width` characters, or npos.
std::size_t LastBlankWithin(std::string_view text, std::size_t width) {
  return text.substr(0, BytesOfCharacters(text, width)).rfind(' ');
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
  if (IsAscii(text)) {
    return text.size();
  }
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at)) {
    ++count;
  }
  return count;
}

std::size_t BytesOfCharacters(std::string_view text, std::size_t characters) {
  if (IsAscii(text.substr(0, characters))) {
    return std::min(characters, text.size());
  }
  std::size_t at = 0;
  for (; characters > 0 && at < text.size(); --characters) {
    at += CharacterLength(text, at);
  }
  return at;
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{}
                                         : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    c = LowerCase(c);
  }
  return lower;
}

std::string Excerpt(std::string_view text) {
  constexpr std::size_t kMost = 40;
  const std::size_t length = BytesOfCharacters(text, kMost);
  return std::string(text.substr(0, length)) + (length < text.size() ? "..." : "");
}

std::string PadLeft(std::string_view text, std::size_t width) {
  return Padding(text, width, ' ').append(text);
}

std::string PadRight(std::string_view text, std::size_t width) {
  return std::string(text) + Padding(text, width, ' ');
}

std::string DotPad(std::string_view text, std::size_t width) {
  return std::string(text) + Padding(text, width, '.');
}

std::string WrapText(std::string_view text, std::size_t width) {
  if (width < kLeastWrapWidth) {
    return std::string(text);
  }
  std::string wrapped;
  std::string shortened;
  while (CharacterCount(text) > width) {
    const std::size_t blank = LastBlankWithin(text, width);
    if (blank == std::string_view::npos) {
      const std::size_t dropped = CharacterCount(text) - (width - 3);
      shortened = "..." + std::string(text.substr(BytesOfCharacters(text, dropped)));
      text = shortened;
    } else {
      wrapped.append(text.substr(0, blank)).append(kLineEnd);
      text = Trimmed(text.substr(blank));
    }
  }
  return wrapped.append(text).append(kLineEnd);
}

SplitLine TakeLine(std::string_view text) {
  const auto* end = std::find_if(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; });
  if (end == text.end()) {
    return {text, {}, false};
  }
  const std::string_view rest(end, text.end());
  return {{text.begin(), end}, rest.substr(rest.starts_with(kLineEnd) ? kLineEnd.size() : 1), true};
}

std::string WithFileLineEnds(std::string_view text) {
  std::string lines;
  lines.reserve(text.size() + text.size() / 16);
  while (!text.empty()) {
    const SplitLine split = TakeLine(text);
    text = split.rest;
    lines.append(split.line).append(kLineEnd);
  }
  return lines;
}

}  // namespace korva
