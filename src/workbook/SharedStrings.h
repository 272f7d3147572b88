// Texts of an .xlsx workbook.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "workbook/ZipParts.h"

namespace korva {

// The texts that the cells of all sheets name by their number; none for an empty part name.
std::vector<std::string> ReadSharedStrings(ZipParts& zip, const std::string& part, const Reading& reading);

// A text or its runs in one piece, without the readings that East Asian texts carry along. `node` is an
// element si or is.
std::string TextOfRuns(const pugi::xml_node& node);

// With the characters that XML cannot hold, which stand as _xHHHH_. What gives no character becomes U+FFFD.
std::string WithoutEscapes(std::string_view text);

}  // namespace korva
