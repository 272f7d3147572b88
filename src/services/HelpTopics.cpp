#include "services/HelpTopics.h"

#include "core/Text.h"

namespace korva {

namespace {

bool IsOurs(std::string_view name) {
  return !name.empty() && !name.starts_with("qt_");
}

// "optUnits(0)" is "optunits-0"; letters beyond ASCII do not occur in names.
std::string LabelPart(std::string_view name) {
  std::string part;
  for (const char c : name) {
    if (c == '(') {
      part += '-';
    } else if (c != ')') {
      part += LowerCase(c);
    }
  }
  return part;
}

}  // namespace

std::string HelpLabel(std::string_view form, std::string_view control) {
  return control.empty() ? LabelPart(form) : LabelPart(form) + '-' + LabelPart(control);
}

std::vector<std::string> HelpLabels(std::string_view form, const std::vector<std::string>& controls) {
  std::vector<std::string> labels;
  for (const std::string& control : controls) {
    if (!IsOurs(control)) {
      continue;
    }
    labels.push_back(HelpLabel(form, control));
    if (const auto index = control.find('('); index != std::string::npos) {
      labels.push_back(HelpLabel(form, std::string_view(control).substr(0, index)));
    }
  }
  if (IsOurs(form)) {
    labels.push_back(HelpLabel(form));
  }
  return labels;
}

}  // namespace korva
