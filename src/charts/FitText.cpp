#include "charts/FitText.h"

#include <algorithm>
#include <utility>

#include "core/Text.h"

namespace korva {

namespace {

constexpr double kHead = 0.8;  // of the font's size, above the base line
constexpr double kTail = 0.22;

}  // namespace

PictureBox BoxOf(const PictureText& text, const TextMeasure& measure) {
  const double width = measure(text.Text, text.Pixels);
  const double head = kHead * text.Pixels;
  const double tail = kTail * text.Pixels;
  const auto& [x, y] = text.At;
  if (text.Upright) {
    return {x - head, y - (1 - text.Along) * width, x + tail, y + text.Along * width};
  }
  return {x - text.Along * width, y - head, x + (1 - text.Along) * width, y + tail};
}

std::string TruncatedText(std::string text, const std::string& dots, double room,
                          const std::function<double(const std::string& text)>& size) {
  while (!text.empty() && size(text + dots) > room) {
    while (IsContinuation(text.back()) && text.size() > 1) {
      text.pop_back();  // of a character of several bytes
    }
    text.pop_back();
  }
  return text.empty() ? text : text + dots;
}

void FitText(PictureText& text, double room, double least, const TextMeasure& measure) {
  while (text.Pixels > least && measure(text.Text, text.Pixels) > room) {
    --text.Pixels;
  }
  if (measure(text.Text, text.Pixels) > room) {
    text.Text = TruncatedText(std::move(text.Text), "\xE2\x80\xA6", room,
                              [&](const std::string& cut) { return measure(cut, text.Pixels); });
  }
}

std::vector<std::string> NoteLines(const std::vector<std::string>& notes, double width,
                                   const std::function<double(const std::string& text)>& size) {
  std::vector<std::string> lines;
  for (std::string rest : notes) {
    while (size(rest) > width) {
      std::size_t end = 0;
      for (std::size_t blank = rest.find(' ', 1);
           blank != std::string::npos && size(rest.substr(0, blank)) <= width;
           blank = rest.find(' ', blank + 1)) {
        end = blank;
      }
      if (end == 0) {  // a word longer than a line
        do {
          ++end;
        } while (end < rest.size() && (IsContinuation(rest[end]) || size(rest.substr(0, end + 1)) <= width));
      }
      lines.push_back(rest.substr(0, end));
      rest.erase(0, end + (end < rest.size() && rest[end] == ' ' ? 1 : 0));
    }
    if (!rest.empty()) {
      lines.push_back(std::move(rest));
    }
  }
  return lines;
}

}  // namespace korva
