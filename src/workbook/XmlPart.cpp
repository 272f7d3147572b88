#include "workbook/XmlPart.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace korva {

namespace {

std::string_view LocalName(std::string_view name) {
  const auto colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

}  // namespace

pugi::xml_document ParseXml(const std::string& bytes, std::string_view part, std::string_view root,
                            const Reading& reading) {
  const auto marks = std::count_if(bytes.begin(), bytes.end(), [](char c) { return c == '<' || c == '='; });
  if (static_cast<std::size_t>(marks) > kMostXmlMarks) {
    reading.TooLarge(
        fmt::format("its part {} has more than {} of the characters < and =", part, kMostXmlMarks));
  }
  pugi::xml_document document;
  const pugi::xml_parse_result result =
      document.load_buffer(bytes.data(), bytes.size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
  if (result.status == pugi::status_out_of_memory) {
    reading.TooLarge(fmt::format("there is no memory for its part {}", part));
  }
  if (!result) {
    reading.Damaged(fmt::format("its part {} is not XML from byte {} on", part, result.offset));
  }
  if (!IsElement(document.document_element(), root)) {
    reading.Damaged(fmt::format("its part {} is no {}", part, root));
  }
  reading.ThrowIfCancelled();
  return document;
}

pugi::xml_node ChildOf(const pugi::xml_node& parent, std::string_view name) {
  return parent.find_child([name](const pugi::xml_node& node) { return IsElement(node, name); });
}

bool IsElement(const pugi::xml_node& node, std::string_view name) {
  return node.type() == pugi::node_element && LocalName(node.name()) == name;
}

std::optional<std::string_view> AttributeOf(const pugi::xml_node& node, std::string_view name) {
  const pugi::xml_attribute found = node.find_attribute(
      [name](const pugi::xml_attribute& attribute) { return LocalName(attribute.name()) == name; });
  return found ? std::optional<std::string_view>(found.value()) : std::nullopt;
}

std::string InnerText(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node inner : node.children()) {
    if (inner.type() == pugi::node_pcdata || inner.type() == pugi::node_cdata) {
      text += inner.value();
    }
  }
  return text;
}

std::string_view WithoutXmlSpace(std::string_view text) {
  static constexpr std::string_view kSpace = " \t\r\n";
  const auto first = text.find_first_not_of(kSpace);
  return first == std::string_view::npos ? std::string_view{}
                                         : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::optional<int> ParseCount(std::string_view text) {
  int number = 0;
  const auto* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end && number >= 0 ? std::optional<int>(number) : std::nullopt;
}

std::optional<bool> ParseXmlFlag(std::string_view text) {
  if (text == "1" || text == "true") {
    return true;
  }
  return text == "0" || text == "false" ? std::optional<bool>(false) : std::nullopt;
}

bool FlagOf(const pugi::xml_node& node, std::string_view name) {
  return ParseXmlFlag(AttributeOf(node, name).value_or("0")).value_or(false);
}

}  // namespace korva
