#include "files/UtilINI.h"

#include <algorithm>

#include "core/Text.h"

namespace korva {

namespace {

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// Where a key of a profile stands, or would.
struct IniPlace {
  bool sectionFound = false;
  bool found = false;
  std::size_t begin = 0;  // of the key's line; where a new one belongs if it was not found
  std::size_t end = 0;    // after that line's end
  std::string_view value;
};

// Letter case and blanks around names do not count, and the first of two equal keys is the one.
IniPlace FindPlace(std::string_view text, std::string_view section, std::string_view key) {
  IniPlace place;
  bool within = false;
  std::string_view left = text;
  while (!left.empty()) {
    const SplitLine split = TakeLine(left);
    const std::size_t begin = text.size() - left.size();
    left = split.rest;
    const std::size_t end = text.size() - left.size();
    const std::string_view line = Trimmed(split.line);
    if (line.starts_with('[')) {
      within = SameIniName(Trimmed(line.substr(1, line.find(']') - 1)), Trimmed(section));
    }
    if (!within) {
      continue;
    }
    const auto equals = line.find('=');
    if (!line.starts_with('[') && equals != std::string_view::npos &&
        SameIniName(Trimmed(line.substr(0, equals)), Trimmed(key))) {
      return {true, true, begin, end, Trimmed(line.substr(equals + 1))};
    }
    if (!line.empty()) {
      place.sectionFound = true;
      place.begin = place.end = end;
    }
  }
  return place;
}

std::string OneLine(std::string_view value) {
  std::string line(value);
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < ' ') {
      c = ' ';
    }
  }
  const bool needsQuotes = Trimmed(line) != line || WithoutQuotes(line) != line;
  return needsQuotes ? '"' + line + '"' : line;
}

}  // namespace

bool SameIniName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

std::optional<std::string> FindIniValue(std::string_view text, std::string_view section,
                                        std::string_view key) {
  const IniPlace place = FindPlace(text, section, key);
  if (!place.found) {
    return std::nullopt;
  }
  const std::string_view value = WithoutQuotes(place.value);
  return std::string(value.substr(0, BytesOfCharacters(value, kLongestIniValue)));
}

std::string GetIniValue(std::string_view text, std::string_view section, std::string_view key,
                        const std::string& fallback) {
  const auto value = FindIniValue(text, section, key);
  return value && !value->empty() ? *value : fallback;
}

void SetIniValue(std::string& text, std::string_view section, std::string_view key, std::string_view value) {
  IniPlace place = FindPlace(text, section, key);
  if (!place.sectionFound) {
    if (!text.empty() && text.back() != '\n' && text.back() != '\r') {
      text += kLineEnd;
    }
    text.append("[").append(section).append("]").append(kLineEnd);
    place.begin = place.end = text.size();
  }
  std::string line = std::string(Trimmed(key)) + "=" + OneLine(value) + std::string(kLineEnd);
  if (place.begin > 0 && text[place.begin - 1] != '\n' && text[place.begin - 1] != '\r') {
    line.insert(0, kLineEnd);  // after a last line without its end
  }
  text.replace(place.begin, place.end - place.begin, line);
}

}  // namespace korva
