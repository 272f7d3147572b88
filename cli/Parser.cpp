#include "Parser.h"

#include "Commands.h"
#include "core/Version.h"

namespace korva::cli {

std::unique_ptr<Parser> MakeParser() {
  auto parser = std::make_unique<Parser>();
  CLI::App& app = parser->App;
  CommonOptions& common = parser->Common;
  app.set_version_flag("--version", "korva " + ProgramVersionText(true));
  app.fallthrough();
  AddCommonOptions(app, common);
  parser->Commands = {AddReport(app, common),  AddCalc(app, common), AddBatch(app, common),
                      AddSweep(app, common),   AddPlan(app, common), AddSave(app, common),
                      AddConvert(app, common), AddUnits(app, common)};
  for (Command& import : AddImport(app, common)) {
    parser->Commands.push_back(std::move(import));
  }
  app.require_subcommand(1);
  app.footer("Exit status: 0 done, 1 refused by a check, 2 usage, 3 file or run-time error.");
  return parser;
}

}  // namespace korva::cli
