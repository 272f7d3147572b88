// A printed sheet as a list of records in twips from the upper left corner of the paper.
// Painters give it a font; tests read it.
#pragma once

#include <string>
#include <vector>

namespace korva {

inline constexpr double kTwipsInInch = 1440;

struct PaperSize {
  int Width = 0;
  int Height = 0;
};

inline constexpr PaperSize kA4Paper = {11906, 16838};
inline constexpr PaperSize kLetterPaper = {12240, 15840};

// What all painters take for the fixed-pitch font of 9 points, so that pages break alike on every one.
inline constexpr int kPrintFontSize = 180;
inline constexpr int kPrintCharacterWidth = 108;
inline constexpr int kPrintLineHeight = 204;
inline constexpr int kPrintAscent = 150;  // from the top of a line to its base line
inline constexpr int kPrintRuleWidth = 10;

// One line of text; X and Y are its upper left corner.
struct SheetText {
  int X = 0;
  int Y = 0;
  std::string Text;
  bool Bold = false;
};

struct SheetRule {
  int X0 = 0;
  int X1 = 0;
  int Y = 0;
};

struct PrintedSheet {
  std::vector<SheetText> Texts;
  std::vector<SheetRule> Rules;
};

}  // namespace korva
