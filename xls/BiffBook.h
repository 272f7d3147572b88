// What the records in front of the worksheets say about all of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbook/DateFormat.h"
#include "xls/BiffRecords.h"

namespace korva {

struct BiffBook {
  struct Worksheet {
    std::string Name;
    std::uint32_t Offset = 0;  // in the stream
  };
  TextCoding Coding;
  DateSystem Dates = DateSystem::k1900;
  // The number of the program that calculated it; 0 asks for doing it again when the workbook is opened.
  // Scripts and programs before 2000 name none.
  std::optional<std::uint32_t> Calculator;
  std::vector<Worksheet> Worksheets;
  std::vector<std::string> Texts;  // that the cells of all worksheets share
  std::vector<bool> DateStyles;    // whether a style shows a number as a date, by its number
};

// Fails with kDamaged, and kLocked for a workbook under a password.
BiffBook ReadBiffBook(std::string_view stream);

}  // namespace korva
