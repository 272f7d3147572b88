// A project file of the sibling program in which every value of the panel differs from the others.
#pragma once

#include <string>
#include <string_view>

namespace korva::test {

// With the text `from` replaced by `to`.
inline std::string VoskPanel(std::string_view from = {}, std::string_view to = {}) {
  std::string text =
      "VOSK_103\n 1 \nNorth, \"four\"\n##StartDesc##\nFirst line, whole\nsecond,its rest\n##EndDesc##\n"
      "own data, 1\n##OTHER##\n##KORVA START## \n##KORVA START##\n"
      "6.5\n812.5\n70\n19\n85\n 3 \n81\n82\n910\n161\n143\n 0 \n0.87\n 2 \n 5 \n"
      "1001\n22\n1002\n23\n151\n31\n1003\n24\n152\n32\n 1 \n 2 \n 3 \n 4 \n55.5\n66.25\n";
  if (!from.empty()) {
    text.replace(text.rfind(from), from.size(), to);
  } else {
    text += "behind\n";
  }
  return text;
}

}  // namespace korva::test
