#include "workbook/WorkbookParts.h"

#include <fmt/format.h>

#include <vector>

#include "workbook/SheetName.h"
#include "workbook/XmlPart.h"

namespace korva {

namespace {

struct Relationship {
  std::string Id;
  std::string Kind;  // the last word of its type
  std::string Part;
};

std::string_view BehindLastSlash(std::string_view text) {
  return text.substr(text.rfind('/') + 1);
}

// Those of `source`, "" for the whole zip. None if it has no such list.
std::vector<Relationship> RelationshipsOf(std::string_view source, ZipParts& zip, const Reading& reading) {
  const std::string_view file = BehindLastSlash(source);
  const std::string list =
      fmt::format("{}_rels/{}.rels", source.substr(0, source.size() - file.size()), file);
  if (!zip.Has(list)) {
    return {};
  }
  std::vector<Relationship> found;
  const pugi::xml_document document = ParseXml(zip.Read(list), list, "Relationships", reading);
  for (const pugi::xml_node node : document.document_element().children()) {
    if (IsElement(node, "Relationship") && AttributeOf(node, "TargetMode").value_or("") != "External") {
      found.push_back({std::string(AttributeOf(node, "Id").value_or("")),
                       std::string(BehindLastSlash(AttributeOf(node, "Type").value_or(""))),
                       PartOfTarget(source, AttributeOf(node, "Target").value_or(""))});
    }
  }
  return found;
}

std::string PartOfKind(const std::vector<Relationship>& all, std::string_view kind) {
  for (const Relationship& one : all) {
    if (one.Kind == kind) {
      return one.Part;
    }
  }
  return {};
}

std::string WorkbookPart(ZipParts& zip, const Reading& reading) {
  std::string part = PartOfKind(RelationshipsOf("", zip, reading), "officeDocument");
  if (part.empty()) {
    reading.Refuse("is a zip file, but not a workbook");
  }
  if (part.ends_with(".bin")) {
    reading.Refuse("is a binary workbook (.xlsb), which cannot be read; save it as .xlsx");
  }
  return part;
}

// The relationship's id of the worksheet `name`.
std::string SheetId(const pugi::xml_node& workbook, std::string_view name, const Reading& reading) {
  std::vector<std::string> names;
  for (const pugi::xml_node node : ChildOf(workbook, "sheets").children()) {
    if (IsElement(node, "sheet")) {
      names.emplace_back(AttributeOf(node, "name").value_or(""));
      if (IsSameSheetName(names.back(), name)) {
        return std::string(AttributeOf(node, "id").value_or(""));
      }
    }
  }
  reading.NoSheet(name, names);
}

}  // namespace

std::string PartOfTarget(std::string_view source, std::string_view target) {
  std::string path;
  if (!target.starts_with('/') && !target.starts_with('\\')) {
    path = source.substr(0, source.rfind('/') + 1);
  }
  while (!target.empty()) {
    const auto slash = target.find_first_of("/\\");
    const std::string_view step = target.substr(0, slash);
    target.remove_prefix(slash == std::string_view::npos ? target.size() : slash + 1);
    if (step == "..") {
      path.resize(path.empty() ? 0 : path.size() - 1);
      path.resize(path.rfind('/') + 1);
    } else if (!step.empty() && step != ".") {
      path += step;
      path += slash == std::string_view::npos ? "" : "/";
    }
  }
  return path;
}

WorkbookParts FindParts(ZipParts& zip, std::string_view name, const Reading& reading) {
  const std::string part = WorkbookPart(zip, reading);
  const pugi::xml_document document = ParseXml(zip.Read(part), part, "workbook", reading);
  const pugi::xml_node workbook = document.document_element();
  const std::string id = SheetId(workbook, name, reading);
  const std::vector<Relationship> all = RelationshipsOf(part, zip, reading);
  WorkbookParts parts;
  parts.SharedStrings = PartOfKind(all, "sharedStrings");
  parts.Styles = PartOfKind(all, "styles");
  const bool since1904 = FlagOf(ChildOf(workbook, "workbookPr"), "date1904");
  parts.Dates = since1904 ? DateSystem::k1904 : DateSystem::k1900;
  parts.IsCalculatedAnew = FlagOf(ChildOf(workbook, "calcPr"), "fullCalcOnLoad");
  for (const Relationship& one : all) {
    if (one.Id == id && !id.empty()) {
      parts.Sheet = one.Part;
    }
  }
  if (parts.Sheet.empty()) {
    reading.Damaged(fmt::format("no relationship names the part of its worksheet \"{}\"", name));
  }
  return parts;
}

}  // namespace korva
