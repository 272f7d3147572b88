// What random people type and paste.
#include <array>

#include "desktop/RandomActionsWorld.h"

namespace korva::desktop::random {

namespace {

// Numbers as they come out of sheets, pages and other programs, and what only looks like one.
constexpr std::array<const char16_t*, 34> kNumbers = {
    u"300",          u"0",         u"6.5",        u"45",      u"-5",           u"12,5",
    u"1,200",        u"1 200",     u"\t300",      u"300\n",   u"300\r\n",      u"\u00A0300",
    u"\u2009300",    u"300\u202F", u"\uFEFF300",  u"\u22125", u"5 ft",         u"1e308",
    u"1e-308",       u"1e999",     u"-1e999",     u"nan",     u"inf",          u"0x10",
    u"1d3",          u".",         u"-",          u"1.5.2",   u"\u0661\u0662", u"9999999999999999999999",
    u"0.1000000001", u"32768",     u"2147483648", u""};

constexpr std::array<const char16_t*, 20> kTexts = {
    u"North panel",
    u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD",  // right to left
    u"\u0645\u0631\u062D\u0628\u0627 600 abc",
    u"\u202Eabc\u202C",                                       // an override of the direction
    u"e\u0301\u0301\u0301\u0301 o\u0308",                     // combining marks
    u"\U0001F4A5\U0001F468\u200D\U0001F469\u200D\U0001F467",  // outside the first plane, joined
    u"\xD800 half of a pair \xDC00",
    u"\x01\x02\x07\x1B[31m\x7F\x85",  // control characters
    u"%s%n%1 %2 %3",
    u"<b>bold</b><img src='x'>&amp;",
    u"a \"quoted\", 'text'\\",
    u"##Recovery##elsewhere.KVL",
    u"##EndDesc##\r\n##StartDesc##",
    u"\"KORVA_603\"",
    u"first\r\nsecond\r\n\r\n\r\nfifth",
    u"first\rsecond\nthird\u2028fourth\u2029fifth",
    u"\f\v page",
    u"[Options]\r\nDataPath=/",
    u"\uFFFE\uFFFF\uFFFD",
    u"   ",
};

}  // namespace

QString OddText(World& world) {
  static constexpr std::array kLengths = {60, 61, 255, 256, 5000, 40000};
  Dice& random = world.Random;
  if (random.Chance(55)) {
    return QString::fromUtf16(random.Pick(kNumbers));
  }
  if (random.Chance(80)) {
    return QString::fromUtf16(random.Pick(kTexts));
  }
  QString text(random.Pick(kLengths), QLatin1Char('w'));
  if (random.Chance(50)) {
    for (QChar& c : text) {
      c = QChar(random.Between(1, 0xFFFF));
    }
  }
  return text;
}

}  // namespace korva::desktop::random
