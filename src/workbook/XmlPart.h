// XML parts of a workbook. Names are compared without their namespace's prefix, which writers choose freely.
#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "workbook/Reading.h"

namespace korva {

// More elements and attributes than this in one part, in sum, are refused before they take memory.
inline constexpr std::size_t kMostXmlMarks = 6'000'000;

// `part` names the bytes in errors. Ends the reading for what is no XML, or has not the element `root`
// outside.
pugi::xml_document ParseXml(const std::string& bytes, std::string_view part, std::string_view root,
                            const Reading& reading);

// The first element `name` in `parent`, or an empty node.
pugi::xml_node ChildOf(const pugi::xml_node& parent, std::string_view name);

bool IsElement(const pugi::xml_node& node, std::string_view name);

// The value of an attribute, or nothing if it is not there.
std::optional<std::string_view> AttributeOf(const pugi::xml_node& node, std::string_view name);

// All text directly in `node`.
std::string InnerText(const pugi::xml_node& node);

// Without blanks, tabs and line ends at both ends.
std::string_view WithoutXmlSpace(std::string_view text);

// A whole number that is not negative, or nothing.
std::optional<int> ParseCount(std::string_view text);

// xsd:boolean; nothing for another text.
std::optional<bool> ParseXmlFlag(std::string_view text);

// Whether an xsd:boolean attribute is there and true.
bool FlagOf(const pugi::xml_node& node, std::string_view name);

}  // namespace korva
