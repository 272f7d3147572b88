#include <fmt/format.h>

#include "OptionTable.h"
#include "core/Version.h"

namespace korva::cli {

namespace {

// Text that the formatter prints as it stands.
std::string Plain(std::string_view text) {
  std::string plain;
  bool atStart = true;
  for (const char c : text) {
    if (atStart && (c == '.' || c == '\'')) {
      plain += "\\&";
    }
    plain += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
    atStart = c == '\n';
  }
  return plain;
}

std::string ShownName(const Word& word) {
  std::string shown;
  for (const std::string& name : word.Names) {
    shown += (shown.empty() ? "" : ", ") + fmt::format("\\fB{}\\fR", Plain(name));
  }
  return shown + (word.Value.empty() ? "" : fmt::format(" \\fI{}\\fR", Plain(word.Value)));
}

std::string Item(const std::string& name, const Word& word) {
  const bool told = word.Choices.empty() || word.Meaning.find(word.Choices.back()) != std::string::npos;
  return fmt::format(".TP\n{}\n{}{}\n", name, Plain(word.Meaning),
                     told ? "" : Plain(fmt::format(" ({})", fmt::join(word.Choices, ", "))));
}

std::string Section(const Call& call) {
  std::string usage = fmt::format("\\fBkorva {}\\fR", Plain(call.Name));
  std::string items;
  if (!call.Commands.empty()) {
    return {};  // those beneath it have sections of their own
  }
  for (const Word& word : call.Positionals) {
    usage += fmt::format(" \\fI{}\\fR{}", Plain(word.Names.front()), word.IsMany ? "..." : "");
    items += Item(fmt::format("\\fI{}\\fR", Plain(word.Names.front())), word);
  }
  for (const Word& option : call.Options) {
    if (option.Names.back() != "--help") {
      usage += fmt::format(" [{}]{}", ShownName(option), option.IsMany ? "..." : "");
      items += Item(ShownName(option), option);
    }
  }
  std::string text =
      fmt::format(".SS {}\n{}\n.PP\n{}.\n{}", Plain(call.Name), usage, Plain(call.Meaning), items);
  const auto line = call.Footer.find('\n');  // after "Example:"
  if (line != std::string::npos) {
    text += fmt::format(".PP\nExample:\n.PP\n.nf\n{}\n.fi\n", Plain(call.Footer.substr(line + 1)));
  }
  return text;
}

}  // namespace

std::string ManualPage(const std::vector<Call>& calls) {
  const Call& program = calls.front();
  std::string text = fmt::format(
      ".TH KORVA 1 \"\" \"korva {}\" \"User Commands\"\n"
      ".SH NAME\nkorva \\- stability of coal pillars in room\\-and\\-pillar retreat panels\n"
      ".SH SYNOPSIS\n\\fBkorva\\fR [\\fIOPTION\\fR]... \\fICOMMAND\\fR [\\fIARGUMENT\\fR]...\n"
      ".SH DESCRIPTION\n"
      "Works out the loads on the pillars of a panel described by a project file, their strength, that of its barrier "
      "pillars, and their stability factors, with the traditional loading model or a laminated overburden. The result "
      "goes to standard output, messages go to standard error.\n"
      ".SH OPTIONS\nThey come before or after any command.\n",
      Plain(ProgramVersionText(true)));
  for (const Word& option : program.Options) {
    text += Item(ShownName(option), option);
  }
  text += ".SH COMMANDS\n";
  for (const Call& call : calls) {
    text += call.Name.empty() ? std::string() : Section(call);
  }
  return text +
         fmt::format(
             ".SH EXIT STATUS\n{}\n"
             ".SH FILES\n.TP\n\\fIshare/korva\\-strond/examples\\fR\nExample projects, below /usr or where else the "
             "program is installed.\n"
             ".SH SEE ALSO\n\\fBkorva\\-strond\\fR(1)\n",
             Plain(program.Footer));
}

}  // namespace korva::cli
