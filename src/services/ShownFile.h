// A text file as the text viewer shows it, made piece by piece.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "files/FileReader.h"

namespace korva {

// What lies beyond the limits of bytes and lines is not shown.
struct ShownLimits {
  std::uint64_t Bytes = std::uint64_t{100} << 20;
  int Lines = 1'000'000;
  int Columns = 1000;  // a longer line goes on in the next
};

// Any file gives a text that can be shown: UTF-8 if all of it is valid, else Windows-1252; every kind of line
// end is "\n"; a control character or one that no text has is a sign of its own.
class ShownFile {
 public:
  // Run-time errors 53, 70, 75 and 76.
  explicit ShownFile(const std::string& path, const ShownLimits& limits = {});

  // Does a step of one or two milliseconds and gives the text that it made, in UTF-8 and, up to the end, in
  // whole lines. At first there is none: the encoding has to be found out. Run-time error 57.
  std::string Next();

  bool Ended() const { return ended_; }
  // After the end: whether a limit has kept some of the file away.
  bool IsCut() const { return cut_; }
  const ShownLimits& Limits() const { return limits_; }
  // How much is done.
  int Percent() const;

 private:
  std::string Read(std::size_t most);
  void Check();
  std::string Piece();
  void Put(char32_t point, std::string_view bytes, std::string& shown);
  void EndLine(std::string& shown);

  std::unique_ptr<FileReader> file_;
  ShownLimits limits_;
  bool checked_ = false;
  bool isUtf8_ = true;
  bool ended_ = false;
  bool cut_ = false;
  std::uint64_t read_ = 0;
  std::string broken_;      // the first bytes of a character that the last piece broke
  std::string unfinished_;  // the beginning of a line
  bool begun_ = false;
  bool afterReturn_ = false;
  int column_ = 0;
  int lines_ = 1;
};

}  // namespace korva
