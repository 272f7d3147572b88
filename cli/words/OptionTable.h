// The command's table of options as plain records.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace korva::cli {

struct Word {
  std::vector<std::string> Names;    // "-o", "--json"; of a positional its one name
  std::string Value;                 // what an option is given, such as "MODEL"; empty for a switch
  std::vector<std::string> Choices;  // all that it can be, if they are few
  std::string Meaning;
  bool IsFile = false;
  bool IsRequired = false;
  bool IsMany = false;
};

struct Call {
  std::string Name;  // "import vosk"; empty for the program itself
  std::string Meaning;
  std::string Footer;
  std::vector<Word> Options;
  std::vector<Word> Positionals;
  std::vector<std::string> Commands;  // the last word of each beneath it
};

// The program itself first, whose options hold for all, then every command before those beneath it.
std::vector<Call> CallsOf(const CLI::App& app);

// What a shell, and the manual, is told.
std::string BashWords(const std::vector<Call>& calls);
std::string FishWords(const std::vector<Call>& calls);
std::string ManualPage(const std::vector<Call>& calls);

}  // namespace korva::cli
