#include "OptionTable.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace korva::cli {

namespace {

constexpr int kMostChoices = 10;

// The texts between commas of "MODEL:{a,b}", or the numbers of "INT in [0 - 5]".
std::vector<std::string> ChoicesOf(std::string_view type) {
  std::vector<std::string> choices;
  const auto open = type.find_first_of("{[");
  if (open == std::string_view::npos) {
    return choices;
  }
  const std::string_view inside = type.substr(open + 1, type.find_first_of("}]", open) - open - 1);
  if (type[open] == '{') {
    for (std::size_t begin = 0; begin <= inside.size();) {
      const auto end = std::min(inside.find(',', begin), inside.size());
      choices.emplace_back(inside.substr(begin, end - begin));
      begin = end + 1;
    }
    return choices;
  }
  int first = 0;
  int last = 0;
  const auto dash = inside.find(" - ");
  const std::string_view upper = inside.substr(dash + 3);
  std::from_chars(inside.data(), inside.data() + dash, first);
  std::from_chars(upper.data(), upper.data() + upper.size(), last);
  for (int number = first; last - first <= kMostChoices && number <= last; ++number) {
    choices.push_back(std::to_string(number));
  }
  return choices;
}

bool IsFileName(const std::string& name) {
  static const std::vector<std::string> names = {"FILE", "OUT", "PATH", "DIR", "WORKBOOK"};
  return std::find(names.begin(), names.end(), name) != names.end();
}

Word WordOf(const CLI::Option& option) {
  Word word;
  const std::string type = option.get_type_name();
  word.Choices = ChoicesOf(type);
  word.Meaning = option.get_description();
  word.IsRequired = option.get_required();
  word.IsMany =
      option.get_expected_max() > 1 || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
  if (option.get_positional()) {
    word.Names = {option.get_name(true)};
    word.IsFile = IsFileName(word.Names.front());
    return word;
  }
  for (const std::string& name : option.get_snames()) {
    word.Names.push_back("-" + name);
  }
  for (const std::string& name : option.get_lnames()) {
    word.Names.push_back("--" + name);
  }
  if (option.get_items_expected_max() > 0) {
    word.Value = type.substr(0, type.find(':'));
    word.IsFile = IsFileName(word.Value);
  }
  return word;
}

void AddCalls(const CLI::App& app, const std::string& name, std::vector<Call>& calls) {
  Call call{name, app.get_description(), app.get_footer(), {}, {}, {}};
  for (const CLI::Option* option : app.get_options([](const CLI::Option*) { return true; })) {
    (option->get_positional() ? call.Positionals : call.Options).push_back(WordOf(*option));
  }
  const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
  for (const CLI::App* command : commands) {
    call.Commands.push_back(command->get_name());
  }
  calls.push_back(std::move(call));
  for (const CLI::App* command : commands) {
    AddCalls(*command, (name.empty() ? name : name + " ") + command->get_name(), calls);
  }
}

}  // namespace

std::vector<Call> CallsOf(const CLI::App& app) {
  std::vector<Call> calls;
  AddCalls(app, "", calls);
  return calls;
}

}  // namespace korva::cli
