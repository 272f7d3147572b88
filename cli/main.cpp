// The command `korva`: parses a call, runs its command, and answers with an exit status.
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <numeric>
#include <string>
#include <vector>

#include "Parser.h"
#include "files/EndingSignals.h"
#include "files/PrivateFolder.h"

namespace korva::cli {

namespace {

// How many letters have to be changed, put in or left out to get from `a` to `b`.
std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

constexpr std::size_t kLikelyTypo = 2;

// What to tell of a call that cannot be understood, with a hint where to look.
std::string UsageText(const CLI::ParseError& error, const CLI::App& app, std::string_view word) {
  std::string hint = "see \"korva --help\"";
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    const std::string name = command->get_name();
    if (word == name) {
      return fmt::format("{}; see \"korva {} --help\"", error.what(), name);
    }
    if (word.size() > kLikelyTypo && EditDistance(word, name) <= kLikelyTypo) {
      hint = fmt::format("did you mean \"korva {}\"?", name);
    }
  }
  if (word.empty() || word.starts_with('-')) {
    return fmt::format("{}; {}", error.what(), hint);
  }
  return fmt::format("there is no command \"{}\"; {}", word, hint);
}

// The arguments from the last to the first. The library would take "-.5" for an option, "-0.5" is a number.
std::vector<std::string> ArgumentsOf(int argc, char** argv) {
  std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  for (auto text = arguments.begin(); text != arguments.end() && *text != "--"; ++text) {
    if (text->starts_with("-.") || text->starts_with("-,")) {
      text->insert(1, "0");
    }
  }
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

int Run(int argc, char** argv) {
  const auto parser = MakeParser();
  CLI::App& app = parser->App;
  try {
    app.parse(ArgumentsOf(argc, argv));
  } catch (const CLI::Success& asked) {  // help or version
    return app.exit(asked);
  } catch (const CLI::ParseError& error) {
    PrintMessage(UsageText(error, app, argc > 1 ? argv[1] : ""));
    return kUsage;
  }
  const auto called = std::find_if(parser->Commands.begin(), parser->Commands.end(),
                                   [](const Command& command) { return command.Parser->parsed(); });
  return called->Run();
}

}  // namespace

}  // namespace korva::cli

int main(int argc, char** argv) {
  const korva::EndingSignals signals(korva::RemoveAllPrivateFolders);
  try {
    return korva::cli::Run(argc, argv);
  } catch (const korva::cli::UsageError& error) {
    korva::cli::PrintMessage(error.text);
    return korva::cli::kUsage;
  } catch (const korva::cli::ClosedPipe&) {
    signals.EndByClosedPipe();
    korva::cli::PrintMessage("standard output was closed");
    return korva::cli::kFailed;
  } catch (const std::exception& error) {
    korva::cli::PrintMessage(error.what());
    return korva::cli::kFailed;
  }
}
