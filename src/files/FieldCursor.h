// Reading values off a text file, field by field.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/FileNotice.h"
#include "core/RuntimeError.h"

namespace korva {

// Walks the text of a file. A field ends at a comma or a line end, blanks in front of it do not count, and a
// double quote at its start delimits it: what stands after the closing quote begins the next field.
// `expected` names the value for messages. Run-time errors name file, line and what was expected: 62 where
// the text has ended, also within a number, 13 for a text that is not wholly a number, 6 for a number beyond
// the range of its type.
class FieldCursor {
 public:
  FieldCursor(std::string_view text, std::string fileName, std::vector<FileNotice>& notices);

  // The rest of the line, whole.
  std::string_view ReadLine(std::string_view expected);
  // A text field; trailing blanks stay.
  std::string_view ReadText(std::string_view expected);
  // A number; an empty field is 0.
  double ReadNumber(std::string_view expected);
  float ReadSingle(std::string_view expected);
  // A number taken to the nearest integer of 16 bits, ties to even.
  int ReadInteger(std::string_view expected);

  bool AtEnd() const { return rest_.empty(); }

  // A notice for each line from here on that is not empty; after many, one for all others.
  void NoticeRest();

  [[noreturn]] void Fail(ErrorNumber number, std::string_view expected, std::string_view found) const;

 private:
  enum class End { kLine, kComma, kQuote, kFile };
  struct Field {
    std::string_view text;
    End end;
  };

  Field TakeField(std::string_view expected);
  void SkipBlanks();
  End TakeDelimiter();
  void Advance(std::size_t bytes) { rest_.remove_prefix(bytes); }

  std::string_view rest_;
  std::string fileName_;
  std::vector<FileNotice>& notices_;
  int line_ = 1;
  int fieldLine_ = 1;
};

}  // namespace korva
