// Texts that have to do with the room that there is.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/Picture.h"

namespace korva {

// What a text covers of the picture, its letters' heads and tails counted.
PictureBox BoxOf(const PictureText& text, const TextMeasure& measure);

// Makes the font smaller, down to `least` pixels, until the text is no wider than `room`; then cuts it off
// and ends it with dots. Nothing is left of it where there is no room for those.
void FitText(PictureText& text, double room, double least, const TextMeasure& measure);

// `text` without as many characters at its end as make it, with `dots` after, no wider than `room`.
std::string TruncatedText(std::string text, const std::string& dots, double room,
                          const std::function<double(const std::string& text)>& size);

// The notes in lines no wider than `width`, by the room that `size` gives a text. A word longer than a line
// is cut between two characters.
std::vector<std::string> NoteLines(const std::vector<std::string>& notes, double width,
                                   const std::function<double(const std::string& text)>& size);

}  // namespace korva
