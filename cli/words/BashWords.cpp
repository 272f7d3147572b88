#include <fmt/format.h>

#include "OptionTable.h"

namespace korva::cli {

namespace {

constexpr std::string_view kHead =
    R"(# Completion of the command korva in bash, made from its own table of options.
_korva() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
  if [[ $cur == = ]]; then # bash takes "--model=traditional" for three words
    cur=""
  elif [[ $prev == = ]]; then
    prev=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  local command="" options="" words="" files="" i
  for ((i = 1; i < COMP_CWORD; i++)); do
    case "$command ${COMP_WORDS[i]}" in
)";

constexpr std::string_view kTail =
    R"(  COMPREPLY=()
  if [[ $files ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  fi
  [[ $cur != -* ]] || words+=" $options"
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$words" -- "$cur")
}
complete -F _korva korva
)";

std::string Joined(const std::vector<std::string>& words) {
  return fmt::format("{}", fmt::join(words, " "));
}

// The case of an option that is given a value, after it.
std::string ValueCase(const Call& call, const Word& option) {
  std::string patterns;
  for (const std::string& name : option.Names) {
    patterns += fmt::format("{}\"{} {}\"", patterns.empty() ? "" : " | ", call.Name, name);
    if (call.Name.empty()) {
      patterns.insert(patterns.rfind('"' + std::string(" ") + name), "*");  // holds in every command
    }
  }
  return fmt::format("    {}) words=\"{}\" files={} ;;\n", patterns, Joined(option.Choices),
                     option.IsFile ? "1" : "");
}

std::string CommandCase(const Call& call, const Call& program) {
  std::vector<std::string> options;
  for (const Word& option : call.Options) {
    options.insert(options.end(), option.Names.begin(), option.Names.end());
  }
  for (const Word& option : program.Options) {
    if (!call.Name.empty() && !option.Value.empty()) {  // --help is each command's own
      options.insert(options.end(), option.Names.begin(), option.Names.end());
    }
  }
  std::vector<std::string> words = call.Commands;
  bool files = false;
  for (const Word& positional : call.Positionals) {
    words.insert(words.end(), positional.Choices.begin(), positional.Choices.end());
    files = files || positional.IsFile;
  }
  return fmt::format("        \"{}\") words=\"{}\" files={} options=\"{}\" ;;\n", call.Name, Joined(words),
                     files ? "1" : "", Joined(options));
}

}  // namespace

std::string BashWords(const std::vector<Call>& calls) {
  std::string known;
  std::string values;
  std::string commands;
  for (const Call& call : calls) {
    if (!call.Name.empty()) {
      const bool beneath = call.Name.find(' ') != std::string::npos;
      known += fmt::format("{}\"{}{}\"", known.empty() ? "" : " | ", beneath ? "" : " ", call.Name);
    }
    for (const Word& option : call.Options) {
      values += option.Value.empty() ? std::string() : ValueCase(call, option);
    }
    commands += CommandCase(call, calls.front());
  }
  return fmt::format(
      "{}      {}) command=${{command:+$command }}${{COMP_WORDS[i]}} ;;\n    esac\n  done\n"
      "  case \"$command $prev\" in\n{}    *)\n      case \"$command\" in\n{}      esac ;;\n  esac\n{}",
      kHead, known, values, commands, kTail);
}

}  // namespace korva::cli
