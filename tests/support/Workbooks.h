// Workbooks of the tests, part by part.
#pragma once

#include <string>

#include "support/ZipFile.h"

namespace korva::test {

// The XML of each part of an .xlsx workbook whose sheet has the name "Cases".
struct BookParts {
  std::string RootLinks =
      R"(<Relationships><Relationship Id="r1" Type="x/officeDocument" Target="xl/workbook.xml"/></Relationships>)";
  std::string Workbook =
      R"(<workbook><sheets><sheet name="Cases" sheetId="1" r:id="s1"/></sheets></workbook>)";
  std::string Links =
      R"(<Relationships><Relationship Id="s1" Type="x/worksheet" Target="sheet.xml"/>)"
      R"(<Relationship Id="s2" Type="x/sharedStrings" Target="/xl/sharedStrings.xml"/>)"
      R"(<Relationship Id="s3" Type="x/styles" Target="../xl/./styles.xml"/></Relationships>)";
  std::string Sheet = "<worksheet/>";
  std::string SharedStrings = "<sst/>";
  std::string Styles = "<styleSheet/>";
};

inline std::vector<ZipEntry> EntriesOf(const BookParts& parts) {
  return {Stored("_rels/.rels", parts.RootLinks),
          Stored("xl/workbook.xml", parts.Workbook),
          Stored("xl/_rels/workbook.xml.rels", parts.Links),
          Stored("xl/sharedStrings.xml", parts.SharedStrings),
          Stored("xl/styles.xml", parts.Styles),
          Stored("xl/sheet.xml", parts.Sheet)};
}

inline std::string BookOf(const BookParts& parts) {
  return ZipOf(EntriesOf(parts));
}

}  // namespace korva::test
