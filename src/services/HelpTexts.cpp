#include "services/HelpTexts.h"

#include <fmt/format.h>

#include "core/Text.h"
#include "core/Version.h"

namespace korva {

namespace {

constexpr std::string_view kContributors = "   The KORVA-STROND contributors";

}  // namespace

std::string AboutText() {
  static constexpr std::string_view kBlankLine = "\r\n\n";
  std::string text = fmt::format("{}{}Version: {}{}Revision Date: {}{}", ExeName, kBlankLine,
                                 ProgramVersionText(true), kBlankLine, RevisionDateText(), kBlankLine);
  for (const std::string_view what :
       {"This program was originally created by:", "Development of windows version:",
        "Development of Strond2D routines:"}) {
    text.append(text.ends_with(kBlankLine) ? "" : kLineEnd).append(what).append(kLineEnd);
    text.append(kContributors).append(kLineEnd);
  }
  return text;
}

std::string AboutTitle() {
  return fmt::format("About the {} Program", ExeName);
}

std::string DisclaimerText() {
  std::string text = "Disclaimer of Liability Clause";
  text.append(kLineEnd).append(kLineEnd);
  text +=
      "This software is provided 'AS IS' without warranty "
      "of any kind including express or implied warranties of merchantability "
      "or fitness for a particular purpose. By acceptance and use of this "
      "software, which is conveyed to the user without consideration by the authors, the "
      "user expressly waives any and all claims for damage and/or suits for personal "
      "injury or property damage resulting from any direct, indirect, incidental, special "
      "or consequential damages, or damages for loss of profits, revenue, data or "
      "property use, incurred by the user or any third party, whether in an action in contract "
      "or tort, arising from access to, or use of, this software in whole or in part. ";
  text.append(kLineEnd).append(kLineEnd);
  return text;
}

}  // namespace korva
