#include "Session.h"

#include <fmt/format.h>

#include <algorithm>

#include "commands/FileCommands.h"
#include "commands/PrivateFiles.h"
#include "core/ClassifyError.h"
#include "core/Encoding.h"
#include "core/Tables.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/OptionsFile.h"
#include "files/ProjectFile.h"
#include "files/SafeWriter.h"
#include "input/FormNotices.h"

namespace korva::cli {

void AddCommonOptions(CLI::App& app, CommonOptions& options) {
  app.add_option("--settings", options.SettingsFile, "take the options of this settings file")
      ->type_name("FILE");
  app.add_option("--set", options.Changes, "change an option for this call, such as OutputStrUnits=1")
      ->type_name("KEY=VALUE")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

Settings PreferencesOf(const CommonOptions& options) {
  Settings settings;
  if (!options.SettingsFile.empty()) {
    const std::string text = TextFromFileBytes(ReadWholeFile(options.SettingsFile, kLargestProjectFile));
    if (!HasOptions(text)) {
      PrintMessage(fmt::format("warning: {}: no options are set in it; each has the value of a missing key",
                               options.SettingsFile));
    }
    settings.Options = ReadOptions(text);
  }
  settings.Options.RoundKORVASF = FactorRounding::kTwoDecimals;
  for (const std::string& change : options.Changes) {
    const auto equals = change.find('=');
    if (equals == std::string::npos) {
      throw UsageError{fmt::format("--set {}: expected KEY=VALUE", change)};
    }
    switch (SetOption(settings.Options, change.substr(0, equals), change.substr(equals + 1))) {
      case OptionChange::kDone:
        break;
      case OptionChange::kReset:
        PrintMessage(
            fmt::format("--set {}: outside the option's range; its minimum or default is used", change));
        break;
      case OptionChange::kUnknownKey:
        throw UsageError{fmt::format("--set {}: there is no such option", change)};
      case OptionChange::kNoNumber:
        throw UsageError{fmt::format("--set {}: the value is not a number", change)};
    }
  }
  return settings;
}

void AddFile(CLI::App& command, std::string& file) {
  command.add_option("FILE", file, "project file")->required();
}

void AddModelOption(CLI::App& command, std::string& model) {
  command.add_option("--model", model, "overburden model, instead of the project's own")
      ->type_name("MODEL")
      ->check(CLI::IsMember(std::vector<std::string>(kModelNames.begin(), kModelNames.end())));
}

std::optional<OverburdenModel> ModelOf(const std::string& name) {
  const auto* found = std::find(kModelNames.begin(), kModelNames.end(), name);
  return found == kModelNames.end()
             ? std::nullopt
             : std::optional(static_cast<OverburdenModel>(found - kModelNames.begin()));
}

bool ReadInto(Korva& korva, const std::string& file, bool (*read)(Korva&, MessagePort&)) {
  korva.ProjectFileName = file;
  TerminalMessages messages(file);
  const auto tellNotices = [&] {  // also in front of an error, whose cause they may be
    for (const FileNotice& notice : korva.FileNotices) {
      PrintMessage(fmt::format("warning: {}, line {}: {}", file, notice.line, notice.text));
    }
  };
  bool opened = false;
  try {
    opened = read(korva, messages);
  } catch (const RuntimeError&) {
    tellNotices();
    throw;
  }
  tellNotices();
  return opened;
}

bool OpenProject(Korva& korva, const std::string& file, bool asJson) {
  const bool opened = ReadInto(korva, file, FileOpen);
  if (!opened && asJson) {
    Print(JsonText({{"file", file}, {"error", PlainErrorJson(kInvalidFormat)}}));
  }
  return opened;
}

int RunOnProject(const CommonOptions& common, const ProjectCall& call,
                 const std::function<int(Korva&)>& action) {
  CommonOptions options = common;
  options.Changes.insert(options.Changes.end(), call.Changes.begin(), call.Changes.end());
  return RunGuarded(options, call.File, call.AsJson, [&](Korva& korva) {
    if (!OpenProject(korva, call.File, call.AsJson)) {
      return kFailed;
    }
    korva.ProjectCalc.CalcMode = ModelOf(call.Model).value_or(korva.ProjectCalc.CalcMode);
    const auto files = PrivateFilesOf(korva);
    return action(korva);
  });
}

PictureKind PictureKindFor(const ProjectCall& call) {
  if (call.Out.empty()) {
    return PictureKind::kSvg;
  }
  const auto kind = PictureKindOf(call.Out);
  if (!kind) {
    throw UsageError{fmt::format("-o {}: expected a name that ends in .svg, .pdf or .png", call.Out)};
  }
  RefuseOwnFile(call, "picture");
  return *kind;
}

void RefuseOwnFile(const ProjectCall& call, std::string_view what) {
  if (!call.Out.empty() && IsSameFile(call.File, call.Out)) {
    throw UsageError{fmt::format("the {} would replace the project file itself", what)};
  }
}

void WriteOrPrint(const ProjectCall& call, const std::string& result) {
  if (call.Out.empty()) {
    Print(result);
  } else {
    WriteFileSafely(call.Out, result);
  }
}

void Warn(std::string_view file, std::string_view text) {
  PrintMessage(fmt::format("warning: {}: {}", file, text));
}

void PrintFormNotices(const Korva& korva, const std::string& file) {
  for (const FormNotice& notice : FormNotices(korva.ProjectCalc)) {
    Warn(file, notice.Text);
  }
}

int RunGuarded(const CommonOptions& common, const std::string& file, bool asJson,
               const std::function<int(Korva&)>& action) {
  Korva korva;
  const auto fail = [&](const RuntimeError& error) {
    TerminalMessages messages(file);
    ClassifyError(korva, messages, error, true);
    if (asJson) {
      Print(JsonText({{"file", file}, {"error", ErrorJson(error)}}));
    }
    return kFailed;
  };
  try {
    korva.Preferences = PreferencesOf(common);
    return action(korva);
  } catch (const RuntimeError& error) {
    return fail(error);
  } catch (const std::bad_alloc&) {
    return fail(RuntimeError(ErrorNumber::kOutOfMemory));
  }
}

std::string CsvCell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    return text;
  }
  std::string cell = "\"";
  for (const char c : text) {
    cell += c == '"' ? "\"\"" : std::string(1, c);
  }
  return cell + "\"";
}

std::string JsonText(const Json& json) {
  return json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json ErrorJson(const RuntimeError& error) {
  return {{"number", static_cast<std::int64_t>(error.Number())}, {"text", error.what()}};
}

Json PlainErrorJson(std::string_view text) {
  return {{"number", 0}, {"text", text}};
}

}  // namespace korva::cli
