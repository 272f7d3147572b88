// What every command of `korva` shares: settings, the model asked for, opening a project and ending a failed
// call.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Terminal.h"
#include "core/Korva.h"
#include "core/RuntimeError.h"
#include "pictures/PictureKind.h"

namespace korva::cli {

// An object whose members keep the order in which they are made.
using Json = nlohmann::ordered_json;

// A command's parser, and what it does when called; Run returns the exit status.
struct Command {
  CLI::App* Parser = nullptr;
  std::function<int()> Run;
};

// The options before or after any command.
struct CommonOptions {
  std::string SettingsFile;
  std::vector<std::string> Changes;  // KEY=VALUE
};

// A call that cannot be understood.
struct UsageError {
  std::string text;
};

void AddCommonOptions(CLI::App& app, CommonOptions& options);

// The preferences of this call: those of a fresh settings file or of the one named, what a start-up forces,
// then the changes. Throws UsageError for an unknown key or a value that is no number.
Settings PreferencesOf(const CommonOptions& options);

// Adds the argument FILE, a project.
void AddFile(CLI::App& command, std::string& file);

// Adds the option --model, which gives `model` its name.
void AddModelOption(CLI::App& command, std::string& model);

// The overburden model of that name, or nothing for an empty one.
std::optional<OverburdenModel> ModelOf(const std::string& name);

// Reads `file` into `korva` with `read`, telling what was odd in it. False for a file of another format,
// which has been reported.
bool ReadInto(Korva& korva, const std::string& file, bool (*read)(Korva&, MessagePort&));

// Opens the project `file` into `korva`, telling what was odd in it. False for a file of no project format,
// which has been reported.
bool OpenProject(Korva& korva, const std::string& file, bool asJson);

// A call about one project, to be calculated by the model asked for or by its own.
struct ProjectCall {
  std::string File;
  std::string Model;
  bool AsJson = false;
  std::string Out;                   // the file that gets the result; empty for the terminal
  std::vector<std::string> Changes;  // KEY=VALUE, after the common ones
};

// Opens the project of `call` and gives a laminated run a folder of its own, then runs `action`.
int RunOnProject(const CommonOptions& common, const ProjectCall& call,
                 const std::function<int(Korva&)>& action);

// The kind of picture that -o asks for, SVG without it. Throws UsageError for another file and for the
// project itself.
PictureKind PictureKindFor(const ProjectCall& call);

// Throws UsageError if `what` would replace the project itself.
void RefuseOwnFile(const ProjectCall& call, std::string_view what);

// Writes a result into the file of the call, or prints it.
void WriteOrPrint(const ProjectCall& call, const std::string& result);

// Tells what is odd about `file`.
void Warn(std::string_view file, std::string_view text);

// Tells what the input form would refuse about the working copy.
void PrintFormNotices(const Korva& korva, const std::string& file);

// Makes the program's state with the preferences of this call and runs `action` on it. A run-time error is
// told, with `asJson` as the result too, and becomes status 3; `file` is what messages are about.
int RunGuarded(const CommonOptions& common, const std::string& file, bool asJson,
               const std::function<int(Korva&)>& action);

// A cell of comma separated values, in quotes where it needs them.
std::string CsvCell(const std::string& text);

// JSON as text with a line end. Bytes that are no valid text are replaced.
std::string JsonText(const Json& json);

// The object that tells a run-time error, and the one for what ends a call without one.
Json ErrorJson(const RuntimeError& error);
Json PlainErrorJson(std::string_view text);

}  // namespace korva::cli
