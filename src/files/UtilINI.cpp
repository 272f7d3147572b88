#include "files/UtilINI.h"

#include <algorithm>

#include "core/Text.h"

namespace korva {

namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

bool SameIniName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

std::optional<std::string> FindIniValue(std::string_view text, std::string_view section,
                                        std::string_view key) {
  bool within = false;
  while (!text.empty()) {
    const SplitLine split = TakeLine(text);
    text = split.rest;
    const std::string_view line = Trimmed(split.line);
    if (line.starts_with('[')) {
      within = SameIniName(Trimmed(line.substr(1, line.find(']') - 1)), Trimmed(section));
      continue;
    }
    const auto equals = line.find('=');
    if (within && equals != std::string_view::npos &&
        SameIniName(Trimmed(line.substr(0, equals)), Trimmed(key))) {
      return std::string(WithoutQuotes(Trimmed(line.substr(equals + 1))).substr(0, kLongestIniValue));
    }
  }
  return std::nullopt;
}

std::string GetIniValue(std::string_view text, std::string_view section, std::string_view key,
                        const std::string& fallback) {
  const auto value = FindIniValue(text, section, key);
  return value && !value->empty() ? *value : fallback;
}

}  // namespace korva
