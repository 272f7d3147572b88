#include "workbook/DateStyles.h"

#include <map>

#include "workbook/DateFormat.h"
#include "workbook/XmlPart.h"

namespace korva {

namespace {

// By the number of the format.
std::map<int, bool> CustomFormats(const pugi::xml_node& root) {
  std::map<int, bool> formats;
  for (const pugi::xml_node node : ChildOf(root, "numFmts").children()) {
    const auto id = ParseCount(AttributeOf(node, "numFmtId").value_or(""));
    if (id) {
      formats[*id] = IsDateFormat(AttributeOf(node, "formatCode").value_or(""));
    }
  }
  return formats;
}

}  // namespace

std::vector<bool> ReadDateStyles(ZipParts& zip, const std::string& part, const Reading& reading) {
  std::vector<bool> styles;
  if (part.empty()) {
    return styles;
  }
  const pugi::xml_document document = ParseXml(zip.Read(part), part, "styleSheet", reading);
  const std::map<int, bool> custom = CustomFormats(document.document_element());
  for (const pugi::xml_node node : ChildOf(document.document_element(), "cellXfs").children()) {
    if (IsElement(node, "xf")) {
      const int id = ParseCount(AttributeOf(node, "numFmtId").value_or("0")).value_or(0);
      const auto format = custom.find(id);
      styles.push_back(format == custom.end() ? IsBuiltInDateFormat(id) : format->second);
    }
  }
  return styles;
}

}  // namespace korva
