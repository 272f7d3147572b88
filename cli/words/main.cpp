// A tool of the build: prints what bash, fish or the manual is told of the command `korva`.
#include <exception>
#include <string_view>

#include "OptionTable.h"
#include "Parser.h"

int main(int argc, char** argv) {
  using namespace korva::cli;
  const std::string_view kind = argc == 2 ? argv[1] : "";
  try {
    const auto parser = MakeParser();
    const auto calls = CallsOf(parser->App);
    if (kind == "bash" || kind == "fish" || kind == "man") {
      Print(kind == "bash" ? BashWords(calls) : kind == "fish" ? FishWords(calls) : ManualPage(calls));
      return 0;
    }
    PrintMessage("usage: korva-words bash|fish|man");
  } catch (const std::exception& error) {
    PrintMessage(error.what());
  }
  return 2;
}
