#include "workbook/SharedStrings.h"

#include <charconv>
#include <optional>

#include "core/Encoding.h"
#include "workbook/SheetBuilder.h"
#include "workbook/XmlPart.h"

namespace korva {

namespace {

constexpr std::size_t kEscapeLength = 7;  // of "_x000D_"
constexpr char32_t kNoCharacter = 0xFFFD;

// The UTF-16 unit of an escape at the front of `text`.
std::optional<char32_t> EscapedUnit(std::string_view text) {
  if (text.size() < kEscapeLength || !text.starts_with("_x") || text[kEscapeLength - 1] != '_') {
    return std::nullopt;
  }
  unsigned unit = 0;
  const char* const end = text.data() + kEscapeLength - 1;
  const auto [stop, error] = std::from_chars(text.data() + 2, end, unit, 16);
  return error == std::errc() && stop == end ? std::optional<char32_t>(unit) : std::nullopt;
}

// A text element; blanks at its ends count only if it says so.
std::string TextOfElement(const pugi::xml_node& node) {
  const std::string text = InnerText(node);
  const bool keepsSpace = AttributeOf(node, "space").value_or("") == "preserve";
  return keepsSpace ? text : std::string(WithoutXmlSpace(text));
}

}  // namespace

std::string WithoutEscapes(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    auto point = text.front() == '_' ? EscapedUnit(text) : std::nullopt;
    if (!point) {
      const auto next = text.find('_', 1);
      plain += text.substr(0, next);
      text.remove_prefix(next == std::string_view::npos ? text.size() : next);
      continue;
    }
    text.remove_prefix(kEscapeLength);
    if (IsHighSurrogate(*point)) {
      const auto low = EscapedUnit(text);
      if (low && IsLowSurrogate(*low)) {
        point = JoinSurrogates(*point, *low);
        text.remove_prefix(kEscapeLength);
      }
    }
    AppendUtf8(plain, *point == 0 ? kNoCharacter : *point);
  }
  return plain;
}

std::string TextOfRuns(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node inner : node.children()) {
    if (IsElement(inner, "t")) {
      text += TextOfElement(inner);
    } else if (IsElement(inner, "r")) {
      text += TextOfElement(ChildOf(inner, "t"));
    }
  }
  return WithoutEscapes(text);
}

std::vector<std::string> ReadSharedStrings(ZipParts& zip, const std::string& part, const Reading& reading) {
  std::vector<std::string> texts;
  if (part.empty()) {
    return texts;
  }
  const pugi::xml_document document = ParseXml(zip.Read(part), part, "sst", reading);
  for (const pugi::xml_node node : document.document_element().children()) {
    if (IsElement(node, "si")) {
      texts.push_back(TextOfRuns(node));
    }
    if (texts.size() > kMostCells) {
      reading.TooLarge("it has more texts than cells");
    }
  }
  reading.ThrowIfCancelled();
  return texts;
}

}  // namespace korva
