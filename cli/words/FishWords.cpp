#include <fmt/format.h>

#include "OptionTable.h"

namespace korva::cli {

namespace {

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c == '\'' || c == '\\' ? "\\" : "";
    quoted += c;
  }
  return quoted + "'";
}

// When the words so far are those of `call`.
std::string Condition(const Call& call) {
  const auto blank = call.Name.find(' ');
  std::string condition = fmt::format("__fish_seen_subcommand_from {}", call.Name.substr(0, blank));
  if (blank != std::string::npos) {
    condition += fmt::format("; and __fish_seen_subcommand_from {}", call.Name.substr(blank + 1));
  } else if (!call.Commands.empty()) {
    condition += fmt::format("; and not __fish_seen_subcommand_from {}", fmt::join(call.Commands, " "));
  }
  return call.Name.empty() ? "__korva_needs_command" : condition;
}

// fish's own test for a missing command takes the value of an option for one.
std::string NeedsCommand(const Call& program) {
  std::string valued;
  for (const Word& option : program.Options) {
    for (const std::string& name : option.Names) {
      valued += option.Value.empty() ? "" : " " + name;
    }
  }
  return fmt::format(R"(function __korva_needs_command
    set -l isValue 0
    for word in (commandline -opc)[2..-1]
        if test $isValue = 1
            set isValue 0
        else if contains -- $word{}
            set isValue 1
        else if not string match -q -- '-*' $word
            return 1
        end
    end
end
)",
                     valued);
}

std::string OptionLine(const Call& call, const Word& option) {
  std::string line = "complete -c korva";
  line += call.Name.empty() ? "" : " -n " + Quoted(Condition(call));
  for (const std::string& name : option.Names) {
    line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  if (option.IsFile) {
    line += " -r -F";
  } else if (!option.Value.empty()) {
    line += " -x";
  }
  line += option.Choices.empty()
              ? ""
              : fmt::format(" -a {}", Quoted(fmt::format("{}", fmt::join(option.Choices, " "))));
  return line + " -d " + Quoted(option.Meaning) + "\n";
}

}  // namespace

std::string FishWords(const std::vector<Call>& calls) {
  std::string text = "# Completion of the command korva in fish, made from its own table of options.\n" +
                     NeedsCommand(calls.front()) + "complete -c korva -f\n";
  for (const Call& call : calls) {
    const std::string condition = Quoted(Condition(call));
    for (const Call& other : calls) {
      const std::string front = call.Name.empty() ? "" : call.Name + " ";
      const std::string last = other.Name.starts_with(front) ? other.Name.substr(front.size()) : "";
      if (!last.empty() && last.find(' ') == std::string::npos) {
        text += fmt::format("complete -c korva -n {} -a {} -d {}\n", condition, last, Quoted(other.Meaning));
      }
    }
    for (const Word& word : call.Positionals) {
      if (word.IsFile) {
        text += fmt::format("complete -c korva -n {} -F\n", condition);
      } else if (!word.Choices.empty()) {
        text += fmt::format("complete -c korva -n {} -a {} -d {}\n", condition,
                            Quoted(fmt::format("{}", fmt::join(word.Choices, " "))), Quoted(word.Meaning));
      }
    }
    for (const Word& option : call.Options) {
      if (call.Name.empty() || option.Names.back() != "--help") {
        text += OptionLine(call, option);
      }
    }
  }
  return text;
}

}  // namespace korva::cli
