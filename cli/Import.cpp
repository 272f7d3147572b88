// korva import: projects from what other programs have written.
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "Commands.h"
#include "commands/CaseImport.h"
#include "commands/FileCommands.h"
#include "commands/Formats.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/VoskFile.h"
#include "workbook/CaseRow.h"

namespace korva::cli {

namespace {

constexpr std::size_t kMostMagic = 1024;  // bytes that hold a format's name, blanks around it included

struct VoskCall {
  std::string File;
  std::string Out;
};

bool IsVoskFile(const std::string& path) {
  if (!StateOfFile(path).isRegular) {
    return false;
  }
  const std::string start = OpenForReading(path)->Read(kMostMagic);
  return start.find_first_not_of(" \t\r\n") != start.npos && DetectVoskFormat(start, path);
}

int ImportVosk(Korva& korva, const VoskCall& call) {
  if (IsVoskFile(call.Out)) {
    PrintMessage(fmt::format("{}: not replaced, since it is a VOSK project itself", call.Out));
    return kRefused;
  }
  if (!ReadInto(korva, call.File, FileOpenVOSK)) {
    return kFailed;
  }
  korva.ProjectFileName = call.Out;
  FileSave(korva);
  return kDone;
}

Command AddVosk(CLI::App& import, const CommonOptions& common) {
  auto call = std::make_shared<VoskCall>();
  CLI::App* parser = import.add_subcommand("vosk", "Import the panel of a VOSK project");
  parser->add_option("FILE", call->File, "VOSK project file")->required();
  parser->add_option("OUT", call->Out, "project file to write")->required();
  parser->footer("Example:\n  korva import vosk panel.VSK panel.KVL");
  return {parser, [call, &common] {
            return RunGuarded(common, call->File, false,
                              [&](Korva& korva) { return ImportVosk(korva, *call); });
          }};
}

struct CasesCall {
  std::string Workbook;
  std::string Folder;
  int Row = 0;  // 0 for all
  bool All = false;
  bool AsJson = false;
};

struct ImportedRow {
  int Row = 0;
  std::string File;
  std::optional<RuntimeError> Fault;
};

// The sheet's rows, from the first case to the last, that hold something.
std::vector<int> RowsOf(const Sheet& sheet, const CasesCall& call) {
  std::vector<int> rows;
  const int first = call.Row == 0 ? kFirstCaseRow : call.Row;
  const int last = call.Row == 0 ? sheet.LastRow() : call.Row;
  for (int row = first; row <= last; ++row) {
    if (HoldsCase(sheet, row)) {
      rows.push_back(row);
    }
  }
  if (rows.empty()) {
    throw RuntimeError(ErrorNumber::kSubscript,
                       call.Row == 0
                           ? fmt::format("sheet \"{}\" holds no case", kCaseSheet)
                           : fmt::format("row {} of sheet \"{}\" holds no case", call.Row, kCaseSheet));
  }
  return rows;
}

// Tells what became of a row; a fault goes beside the result.
void PrintRow(const ImportedRow& row, const CasesCall& call) {
  if (row.Fault) {
    PrintMessage(fmt::format("{}: {}", call.Workbook, row.Fault->what()));
  } else if (!call.AsJson) {
    Print(fmt::format("{:<8}{}\n", row.Row, row.File));
  }
}

Json RowsJson(const std::vector<ImportedRow>& rows) {
  Json json = Json::array();
  for (const ImportedRow& row : rows) {
    json.push_back(row.Fault ? Json{{"row", row.Row}, {"error", ErrorJson(*row.Fault)}}
                             : Json{{"row", row.Row}, {"file", row.File}});
  }
  return json;
}

// Imports a row; false if it failed for a reason that other rows would fail for, too.
bool ImportRow(Korva& korva, const Sheet& sheet, const CasesCall& call, ImportedRow& row) {
  try {
    row.File = ImportCase(korva, sheet, row.Row, call.Folder);
  } catch (const RuntimeError& error) {
    row.Fault = error;
  }
  PrintRow(row, call);
  return !row.Fault || IsCaseFault(*row.Fault);
}

int ImportCases(Korva& korva, const CasesCall& call) {
  const Sheet sheet = Formats().ReadSheet(call.Workbook, kCaseSheet, [] { return true; });
  const std::vector<int> rows = RowsOf(sheet, call);
  MakeFolder(call.Folder);
  std::vector<ImportedRow> done;
  for (const int row : rows) {
    done.push_back({row, {}, {}});
    if (!ImportRow(korva, sheet, call, done.back())) {
      break;
    }
  }
  if (call.AsJson) {
    Print(JsonText({{"file", call.Workbook}, {"rows", RowsJson(done)}}));
  }
  const bool faults =
      std::any_of(done.begin(), done.end(), [](const ImportedRow& row) { return row.Fault.has_value(); });
  return faults ? kFailed : kDone;
}

Command AddCases(CLI::App& import, const CommonOptions& common) {
  constexpr int kMostRows = 1048576;
  auto call = std::make_shared<CasesCall>();
  CLI::App* parser = import.add_subcommand("cases", "Make a project of each row of a workbook of cases");
  parser->add_option("WORKBOOK", call->Workbook, "workbook, .xls or .xlsx, with a sheet \"Cases\"")
      ->required();
  parser->add_option("DIR", call->Folder, "folder for the project files, made if it is missing")->required();
  auto* row = parser->add_option("--row", call->Row, "only this row of the sheet")
                  ->type_name("N")
                  ->check(CLI::Range(kFirstCaseRow, kMostRows));
  parser->add_flag("--all", call->All, "all rows from 3 on, as without --row")->excludes(row);
  parser->add_flag("--json", call->AsJson, "rows and files as JSON");
  parser->footer("Example:\n  korva import cases examples/cases.xlsx cases");
  return {parser, [call, &common] {
            return RunGuarded(common, call->Workbook, call->AsJson,
                              [&](Korva& korva) { return ImportCases(korva, *call); });
          }};
}

}  // namespace

std::vector<Command> AddImport(CLI::App& app, const CommonOptions& common) {
  CLI::App* import = app.add_subcommand("import", "Make projects of other programs' files");
  import->require_subcommand(1);
  import->fallthrough();
  return {AddVosk(*import, common), AddCases(*import, common)};
}

}  // namespace korva::cli
