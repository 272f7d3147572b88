// What the input form would refuse of a panel although the record check lets it pass.
#pragma once

#include <string>

namespace korva {

struct FormNotice {
  std::string Reason;  // in general: "pillars without length"
  std::string Text;    // a sentence with the panel's own numbers
};

}  // namespace korva
