// Texts in characters: lengths, padding, trimming and wrapping. Texts are UTF-8; a width counts characters,
// and a byte that belongs to no valid character counts as one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korva {

inline constexpr std::string_view kLineEnd = "\r\n";

std::size_t CharacterCount(std::string_view text);

// The byte position at which character number `characters` (from 0) begins, or the length if there are fewer.
std::size_t BytesOfCharacters(std::string_view text, std::size_t characters);

// Whether a byte goes on with a character that another one has begun.
constexpr bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Without blanks (and only blanks) at both ends.
std::string_view Trimmed(std::string_view text);

// Whether a byte is an ASCII control character, in any locale.
constexpr bool IsControl(char c) {
  return (c >= '\0' && c < ' ') || c == '\x7F';
}

// ASCII capital letters as small ones, in any locale; all else as it is.
constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string LowerCase(std::string_view text);

// What a message shows of a text that may be of any length: its first 40 characters, with dots after if
// there are more.
std::string Excerpt(std::string_view text);

// `text` with blanks in front, blanks after, or dots after up to `width`. A longer text is returned whole.
std::string PadLeft(std::string_view text, std::size_t width);
std::string PadRight(std::string_view text, std::size_t width);
std::string DotPad(std::string_view text, std::size_t width);

// `text` broken at blanks into lines of at most `width` characters, each with a line end, the last one too. A
// word longer than the width loses its front to "...". A width of 20 or less returns the text unchanged.
std::string WrapText(std::string_view text, std::size_t width);

// One line of a text without its end, and what stands after it. CR LF, CR and LF end a line.
struct SplitLine {
  std::string_view line;
  std::string_view rest;
  bool ended = false;  // false if the text stops without a line end
};
SplitLine TakeLine(std::string_view text);

// Every line with CR LF at its end, the last one too.
std::string WithFileLineEnds(std::string_view text);

}  // namespace korva
