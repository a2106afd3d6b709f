#include "dates/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <locale>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "dates/date_difference.h"
#include "dates/event_fields.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

// A character's number, for messages.
std::string Code(char32_t character) {
  return "character " + std::to_string(static_cast<unsigned long>(character));
}

// --- Well-formed UTF-8

struct Utf8Case {
  const char* name;
  std::string text;
  bool valid;
  std::size_t characters;
};

std::vector<Utf8Case> Utf8Cases() {
  using std::string_literals::operator""s;
  return {
      {"empty", "", true, 0},
      {"ASCII", "abc", true, 3},
      {"a zero byte", "a\0b"s, true, 3},
      {"two bytes", "caf\xC3\xA9", true, 4},
      {"three bytes", "\xE2\x82\xAC", true, 1},
      {"four bytes", "\xF0\x9F\x8E\x82", true, 1},
      {"a base and a combining mark", "e\xCC\x81", true, 2},
      {"first of two bytes", "\xC2\x80", true, 1},
      {"last of two bytes", "\xDF\xBF", true, 1},
      {"first of three bytes", "\xE0\xA0\x80", true, 1},
      {"last before the surrogates", "\xED\x9F\xBF", true, 1},
      {"first behind the surrogates", "\xEE\x80\x80", true, 1},
      {"last of three bytes", "\xEF\xBF\xBF", true, 1},
      {"first of four bytes", "\xF0\x90\x80\x80", true, 1},
      {"last of all", "\xF4\x8F\xBF\xBF", true, 1},
      // Every byte of what is not well formed counts as one character.
      {"a continuation alone", "\x80", false, 1},
      {"Windows-1252", "caf\xE9", false, 4},
      {"overlong slash", "\xC0\xAF", false, 2},
      {"overlong in two bytes", "\xC1\xBF", false, 2},
      {"overlong in three bytes", "\xE0\x9F\xBF", false, 3},
      {"overlong in four bytes", "\xF0\x8F\xBF\xBF", false, 4},
      {"first surrogate", "\xED\xA0\x80", false, 3},
      {"last surrogate", "\xED\xBF\xBF", false, 3},
      {"beyond U+10FFFF", "\xF4\x90\x80\x80", false, 4},
      {"lead byte F5", "\xF5\x80\x80\x80", false, 4},
      {"lead byte FF", "\xFF", false, 1},
      {"cut after one of two", "a\xC3", false, 2},
      {"cut after two of three", "\xE2\x82", false, 2},
      {"cut after three of four", "\xF0\x9F\x8E", false, 3},
      {"cut by ASCII",
       "\xE2\x82"
       "a",
       false, 3},
      {"a lead byte behind a lead byte", "\xC3\xC3\xA9", false, 2},
  };
}

TEST(Utf8Test, KnowsWellFormedSequences) {
  for (const Utf8Case& c : Utf8Cases()) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(IsValidUtf8(c.text), c.valid);
    EXPECT_EQ(CountCharacters(c.text), c.characters);
  }
}

// ASCII is passed over in blocks; a sequence may stand at any place of a block and across its end.
TEST(Utf8Test, KnowsThemAtEveryPlaceOfALongText) {
  for (std::size_t before = 0; before < 140; ++before) {
    for (const std::size_t after : {0u, 1u, 63u, 64u, 65u}) {
      for (const Utf8Case& c : Utf8Cases()) {
        const std::string text = std::string(before, 'x') + c.text + std::string(after, 'y');
        ASSERT_EQ(IsValidUtf8(text), c.valid) << c.name << " behind " << before;
      }
    }
  }
  for (std::size_t count = 1; count < 140; ++count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += "\xE2\x82\xAC";
    ASSERT_TRUE(IsValidUtf8(text)) << count;
    ASSERT_EQ(CountCharacters(text), count);
    ASSERT_FALSE(IsValidUtf8(text.substr(0, text.size() - 1))) << count;
    ASSERT_FALSE(IsValidUtf8(text.substr(1))) << count;
  }
}

TEST(Utf8Test, WritesAndReadsEveryCharacter) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    // Beyond the first planes one in seven is enough.
    if (c > 0x3000 && c % 7 != 0 && c < 0x10FF00 && (c & 0xFFF) > 1) continue;
    std::string text;
    AppendCharacter(text, c);
    ASSERT_EQ(text.size(), c < 0x80 ? 1u : c < 0x800 ? 2u : c < 0x10000 ? 3u : 4u) << Code(c);
    ASSERT_TRUE(IsValidUtf8(text)) << Code(c);
    std::string_view rest = text;
    ASSERT_EQ(TakeCharacter(rest), c) << Code(c);
    ASSERT_TRUE(rest.empty()) << Code(c);
  }
}

TEST(TakeCharacterTest, TakesOneCharacterAtATime) {
  std::string_view text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\x82z";
  std::vector<char32_t> characters;
  while (!text.empty()) characters.push_back(TakeCharacter(text));
  EXPECT_EQ(characters, (std::vector<char32_t>{U'a', 0xE9, 0x20AC, 0x1F382, U'z'}));
}

TEST(TakeCharacterTest, GivesAStrayByteOutsideUnicode) {
  std::string_view text =
      "\xC3"
      "a\xFF\xE2\x82";
  std::vector<char32_t> characters;
  while (!text.empty()) characters.push_back(TakeCharacter(text));
  EXPECT_EQ(characters, (std::vector<char32_t>{0x1100C3, U'a', 0x1100FF, 0x1100E2, 0x110082}));
}

TEST(IsAsciiTest, LooksAtEveryByte) {
  EXPECT_TRUE(IsAscii(""));
  for (std::size_t length = 1; length < 40; ++length) {
    ASSERT_TRUE(IsAscii(std::string(length, '\x7F')));
    for (std::size_t at = 0; at < length; ++at) {
      std::string text(length, 'x');
      text[at] = '\x80';
      ASSERT_FALSE(IsAscii(text)) << length << " " << at;
    }
  }
}

// --- Cutting

TEST(CharactersTest, AreNeverSplit) {
  const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\x82z";  // five characters
  const char* first[] = {"", "a", "a\xC3\xA9", "a\xC3\xA9\xE2\x82\xAC",
                         "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\x82"};
  const char* last[] = {"", "z", "\xF0\x9F\x8E\x82z", "\xE2\x82\xAC\xF0\x9F\x8E\x82z",
                        "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\x82z"};
  for (std::size_t count = 0; count < 5; ++count) {
    EXPECT_EQ(FirstCharacters(text, count), first[count]);
    EXPECT_EQ(LastCharacters(text, count), last[count]);
    EXPECT_EQ(WithoutFirstCharacters(text, 5 - count), last[count]);
  }
  for (const std::size_t count : {5u, 6u, 1000u}) {
    EXPECT_EQ(FirstCharacters(text, count), text);
    EXPECT_EQ(LastCharacters(text, count), text);
    EXPECT_EQ(WithoutFirstCharacters(text, count), "");
  }
  EXPECT_EQ(WithoutFirstCharacters(text, 0), text);
  EXPECT_EQ(FirstCharacters("\xFF\xFE"
                            "a",
                            2),
            "\xFF\xFE");
  EXPECT_EQ(LastCharacters("a\xFF\xFE", 2), "\xFF\xFE");
  EXPECT_EQ(FirstCharacters("", 3), "");
  EXPECT_EQ(LastCharacters("", 3), "");
}

// --- Letter case

// Alphabets as they are taught, capital under small letter.
const std::pair<std::u32string_view, std::u32string_view> kAlphabets[] = {
    {U"abcdefghijklmnopqrstuvwxyz", U"ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    {U"\u00e0\u00e1\u00e2\u00e3\u00e4\u00e5\u00e6\u00e7\u00e8\u00e9\u00ea\u00eb\u00ec\u00ed\u00ee"
     U"\u00ef\u00f0\u00f1\u00f2\u00f3\u00f4\u00f5\u00f6\u00f8\u00f9\u00fa\u00fb\u00fc\u00fd\u00fe",
     U"\u00c0\u00c1\u00c2\u00c3\u00c4\u00c5\u00c6\u00c7\u00c8\u00c9\u00ca\u00cb\u00cc\u00cd\u00ce"
     U"\u00cf\u00d0\u00d1\u00d2\u00d3\u00d4\u00d5\u00d6\u00d8\u00d9\u00da\u00db\u00dc\u00dd\u00de"},
    // Polish, Czech, Romanian, Turkish, Latvian and French letters
    {U"ąćęłńśźżčďěňřšťůžășțğşāēīū\u0153\u00ff", U"ĄĆĘŁŃŚŹŻČĎĚŇŘŠŤŮŽĂȘȚĞŞĀĒĪŪ\u0152\u0178"},
    {U"αβγδεζηθικλμνξοπρστυφχψωάέήίόύώϊϋ", U"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΆΈΉΊΌΎΏΪΫ"},
    {U"абвгдежзийклмнопрстуфхцчшщъыьэюяёђѓєѕіїјљњћќўџґ",
     U"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁЂЃЄЅІЇЈЉЊЋЌЎЏҐ"},
    {U"աբգդեզէըթժիլխծկհձղճմյնշոչպջռսվտրցւփքօֆ", U"ԱԲԳԴԵԶԷԸԹԺԻԼԽԾԿՀՁՂՃՄՅՆՇՈՉՊՋՌՍՎՏՐՑՒՓՔՕՖ"},
    // Vietnamese, Greek with breathings, Deseret
    {U"ạảấầẩẫậắằẳẵặơưἀἁὠᾳ", U"ẠẢẤẦẨẪẬẮẰẲẴẶƠƯἈἉὨᾼ"},
    {U"\U00010428\U0001044f", U"\U00010400\U00010427"},
};

TEST(LetterCaseTest, PairsTheLettersOfTheAlphabets) {
  for (const auto& [lower, upper] : kAlphabets) {
    ASSERT_EQ(lower.size(), upper.size());
    for (std::size_t i = 0; i < lower.size(); ++i) {
      EXPECT_EQ(ToLower(upper[i]), lower[i]) << Code(upper[i]);
      EXPECT_EQ(ToUpper(lower[i]), upper[i]) << Code(lower[i]);
      EXPECT_EQ(ToLower(lower[i]), lower[i]) << Code(lower[i]);
      EXPECT_EQ(ToUpper(upper[i]), upper[i]) << Code(upper[i]);
    }
  }
}

struct OddLetter {
  const char* name;
  char32_t character;
  char32_t lower;
  char32_t upper;
};

// Letters whose simple mappings are not a pair, from UnicodeData.txt.
const OddLetter kOddLetters[] = {
    {"sharp s", 0x00DF, 0x00DF, 0x00DF},
    {"capital sharp s", 0x1E9E, 0x00DF, 0x1E9E},
    {"I with dot above", 0x0130, U'i', 0x0130},
    {"dotless i", 0x0131, 0x0131, U'I'},
    {"final sigma", 0x03C2, 0x03C2, 0x03A3},
    {"long s", 0x017F, 0x017F, U'S'},
    {"kelvin sign", 0x212A, U'k', 0x212A},
    {"angstrom sign", 0x212B, 0x00E5, 0x212B},
    {"ohm sign", 0x2126, 0x03C9, 0x2126},
    {"micro sign", 0x00B5, 0x00B5, 0x039C},
    {"DZ with caron", 0x01C4, 0x01C6, 0x01C4},
    {"Dz with caron", 0x01C5, 0x01C6, 0x01C4},
    {"dz with caron", 0x01C6, 0x01C6, 0x01C4},
    {"y with diaeresis", 0x00FF, 0x00FF, 0x0178},
    {"Cherokee small a", 0xAB70, 0xAB70, 0x13A0},
    {"Georgian an", 0x10D0, 0x10D0, 0x1C90},
    {"Roman numeral two", 0x2161, 0x2171, 0x2161},
    {"circled a", 0x24D0, 0x24D0, 0x24B6},
    {"apostrophe n", 0x0149, 0x0149, 0x0149},
    {"multiplication sign", 0x00D7, 0x00D7, 0x00D7},
    {"division sign", 0x00F7, 0x00F7, 0x00F7},
    {"feminine ordinal", 0x00AA, 0x00AA, 0x00AA},
    {"kra", 0x0138, 0x0138, 0x0138},
    {"hebrew alef", 0x05D0, 0x05D0, 0x05D0},
    {"euro sign", 0x20AC, 0x20AC, 0x20AC},
    {"birthday cake", 0x1F382, 0x1F382, 0x1F382},
    {"digit", U'7', U'7', U'7'},
    {"at sign", U'@', U'@', U'@'},
    {"bracket", U'[', U'[', U'['},
    {"last character", 0x10FFFF, 0x10FFFF, 0x10FFFF},
};

TEST(LetterCaseTest, KnowsTheLettersThatAreNoPair) {
  for (const OddLetter& c : kOddLetters) {
    EXPECT_EQ(ToLower(c.character), c.lower) << c.name;
    EXPECT_EQ(ToUpper(c.character), c.upper) << c.name;
  }
}

// Whatever a character is mapped to is a character too, and is at the end of its way.
TEST(LetterCaseTest, MapsEveryCharacterOnceAndInsideUnicode) {
  int lowered = 0;
  int raised = 0;
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    const char32_t lower = ToLower(c);
    const char32_t upper = ToUpper(c);
    if (lower == c && upper == c) continue;
    ASSERT_TRUE(lower <= 0x10FFFF && (lower < 0xD800 || lower > 0xDFFF)) << Code(c);
    ASSERT_TRUE(upper <= 0x10FFFF && (upper < 0xD800 || upper > 0xDFFF)) << Code(c);
    ASSERT_EQ(ToLower(lower), lower) << Code(c);
    ASSERT_EQ(ToUpper(upper), upper) << Code(c);
    lowered += lower != c ? 1 : 0;
    raised += upper != c ? 1 : 0;
  }
  // The number of simple mappings in UnicodeData.txt, version 14.
  EXPECT_EQ(lowered, 1433);
  EXPECT_EQ(raised, 1450);
}

TEST(LetterCaseTest, NeverChangesTheNumberOfCharacters) {
  EXPECT_EQ(ToLower("STRASSE Stra\xC3\x9F"
                    "e"),
            "strasse stra\xC3\x9F"
            "e");
  EXPECT_EQ(ToUpper("Stra\xC3\x9F"
                    "e"),
            "STRA\xC3\x9F"
            "E");
  EXPECT_EQ(ToLower("\xC4\xB0stanbul"), "istanbul");
  EXPECT_EQ(ToLower("\xCE\xA3\xCE\x91\xCE\xA3"), "\xCF\x83\xCE\xB1\xCF\x83");  // no final sigma
  EXPECT_EQ(ToUpper("\xCF\x83\xCE\xB1\xCF\x82"), "\xCE\xA3\xCE\x91\xCE\xA3");
  EXPECT_EQ(ToLower("5 \xE2\x84\xAA"), "5 k");
  EXPECT_EQ(ToUpper("\xF0\x9F\x8E\x82 birthday"), "\xF0\x9F\x8E\x82 BIRTHDAY");
  EXPECT_EQ(ToLower(""), "");
  EXPECT_EQ(ToUpper(""), "");
}

TEST(LetterCaseTest, KeepsStrayBytes) {
  EXPECT_EQ(ToLower("CAF\xC9 \xFF\xC3"), "caf\xC9 \xFF\xC3");
  EXPECT_EQ(ToUpper("caf\xE9 \xFF\xC3"), "CAF\xE9 \xFF\xC3");
  EXPECT_EQ(ToLower("\xC9\xC3\x89"), "\xC9\xC3\xA9");
}

TEST(ToLowerAsciiTest, ChangesTwentySixLettersOnly) {
  for (int c = 0; c < 256; ++c) {
    const int expected = c >= 'A' && c <= 'Z' ? c + 32 : c;
    EXPECT_EQ(static_cast<unsigned char>(ToLowerAscii(static_cast<char>(c))), expected);
  }
}

// --- Comparing

int Sign(int value) {
  return value < 0 ? -1 : value > 0 ? 1 : 0;
}

struct OrderCase {
  const char* a;
  const char* b;
  int order;
};

const OrderCase kOrders[] = {
    {"", "", 0},
    {"", "a", -1},
    {"abc", "ABC", 0},
    {"abc", "ABD", -1},
    {"ABD", "abc", 1},
    {"abc", "abcd", -1},
    {"Zebra", "apple", 1},
    {"_", "A", -1},  // between the capitals and the small letters: the small ones count
    {"[", "a", -1},
    {"Z", "[", 1},
    {"10", "9", -1},
    {"\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89", 0},
    {"\xC3\xA9", "z", 1},
    {"Z", "\xC3\x89", -1},
    {"\xE2\x84\xAA", "k", 0},
    {"\xE2\x84\xAA", "l", -1},
    {"K", "\xE2\x84\xAA", 0},
    {"\xC4\xB0", "I", 0},
    {"\xC4\xB1", "i", 1},  // dotless i is its own letter
    {"\xC3\x9F", "\xE1\xBA\x9E", 0},
    {"\xC3\x9F", "ss", 1},
    {"\xCF\x82", "\xCF\x83", -1},              // final sigma is its own letter
    {"\xEF\xBF\xBD", "\xF0\x9F\x8E\x82", -1},  // by code points across the planes
    {"eightbytes", "EIGHTBYTES", 0},
    {"eightbytesA", "eightbytesb", -1},
    {"eightbyt\xC3\x89s", "EIGHTBYT\xC3\xA9S", 0},
};

TEST(CompareIgnoringCaseTest, OrdersTheLowerCasedTextsByCodePoints) {
  for (const OrderCase& c : kOrders) {
    EXPECT_EQ(Sign(CompareIgnoringCase(c.a, c.b)), c.order) << c.a << " " << c.b;
    EXPECT_EQ(Sign(CompareIgnoringCase(c.b, c.a)), -c.order) << c.a << " " << c.b;
    EXPECT_EQ(EqualIgnoringCase(c.a, c.b), c.order == 0) << c.a << " " << c.b;
  }
}

// Random texts of letters whose lower case is written here by hand.
TEST(CompareIgnoringCaseTest, AgreesWithAComparisonOfListsOfCharacters) {
  struct Letter {
    const char* text;
    char32_t lower;
  };
  const Letter letters[] = {{"a", U'a'},
                            {"A", U'a'},
                            {"b", U'b'},
                            {"Z", U'z'},
                            {"_", U'_'},
                            {"[", U'['},
                            {" ", U' '},
                            {"k", U'k'},
                            {"K", U'k'},
                            {"\xE2\x84\xAA", U'k'},
                            {"i", U'i'},
                            {"I", U'i'},
                            {"\xC4\xB0", U'i'},
                            {"\xC4\xB1", 0x131},
                            {"\xC3\xA5", 0xE5},
                            {"\xC3\x85", 0xE5},
                            {"\xE2\x84\xAB", 0xE5},
                            {"\xC3\x9F", 0xDF},
                            {"\xE1\xBA\x9E", 0xDF},
                            {"\xD0\x90", 0x430},
                            {"\xF0\x9F\x8E\x82", 0x1F382}};
  std::mt19937 random(20150119);
  const auto below = [&](std::size_t bound) { return random() % bound; };
  int equal = 0;
  for (int round = 0; round < 60000; ++round) {
    // Long equal beginnings, in any case, lead the comparison over several words.
    std::string texts[2];
    std::u32string characters[2];
    const std::size_t common = below(20);
    const auto append = [&](std::size_t which, const Letter& letter) {
      texts[which] += letter.text;
      characters[which] += letter.lower;
    };
    for (std::size_t i = 0; i < common; ++i) {
      const bool capital = below(2) == 0;
      append(0, letters[0]);
      append(1, letters[capital ? 1 : 0]);
    }
    for (std::size_t which = 0; which < 2; ++which) {
      for (std::size_t i = below(4); i > 0; --i) append(which, letters[below(std::size(letters))]);
    }
    const int expected = Sign(characters[0].compare(characters[1]));
    ASSERT_EQ(Sign(CompareIgnoringCase(texts[0], texts[1])), expected)
        << texts[0] << " " << texts[1];
    ASSERT_EQ(EqualIgnoringCase(texts[0], texts[1]), expected == 0);
    equal += expected == 0 ? 1 : 0;
  }
  EXPECT_GT(equal, 100);
}

// An order that a sort can work with, whatever the bytes are.
TEST(CompareIgnoringCaseTest, StaysAnOrderForTextsThatAreNotUtf8) {
  const std::vector<std::string> pieces{
      "",     "k",    "K",        "l",        "\xE2", "\xE2\x84", "\xE2\x84\xAA",
      "\x84", "\xC3", "\xC3\x89", "\xC3\xA9", "\xE9", "\xFF"};
  std::vector<std::string> texts;
  for (const std::string& first : pieces) {
    for (const std::string& second : pieces) texts.push_back(first + second);
  }
  for (const std::string& a : texts) {
    for (const std::string& b : texts) {
      const int order = Sign(CompareIgnoringCase(a, b));
      EXPECT_EQ(Sign(CompareIgnoringCase(b, a)), -order)
          << testing::PrintToString(a) << " " << testing::PrintToString(b);
      EXPECT_EQ(order == 0, ToLower(a) == ToLower(b))
          << testing::PrintToString(a) << " " << testing::PrintToString(b);
      for (const std::string& c : texts) {
        if (order >= 0 || CompareIgnoringCase(b, c) >= 0) continue;
        ASSERT_LT(CompareIgnoringCase(a, c), 0)
            << testing::PrintToString(a) << " before " << testing::PrintToString(b) << " before "
            << testing::PrintToString(c);
      }
    }
  }
}

TEST(EqualIgnoringAsciiCaseTest, LeavesOtherLettersApart) {
  EXPECT_TRUE(EqualIgnoringAsciiCase("", ""));
  EXPECT_TRUE(EqualIgnoringAsciiCase("Settings/Path", "SETTINGS/pATH"));
  EXPECT_TRUE(
      EqualIgnoringAsciiCase("\xC3\xA9"
                             "A",
                             "\xC3\xA9"
                             "a"));
  EXPECT_FALSE(EqualIgnoringAsciiCase("\xC3\xA9", "\xC3\x89"));
  EXPECT_FALSE(EqualIgnoringAsciiCase("k", "\xE2\x84\xAA"));
  EXPECT_FALSE(EqualIgnoringAsciiCase("a", "ab"));
  EXPECT_FALSE(EqualIgnoringAsciiCase("[", "{"));
  EXPECT_FALSE(EqualIgnoringAsciiCase("@", "`"));
}

TEST(TrimTest, TakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim("a"), "a");
  EXPECT_EQ(Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(Trim("\xC2\xA0"
                 "a "),
            "\xC2\xA0"
            "a");
}

// --- Numbers

TEST(IsDigitsTest, MeansOneOrMoreAsciiDigits) {
  for (const char* text : {"0", "7", "0123456789", "99999999999999999999"}) {
    EXPECT_TRUE(IsDigits(text)) << text;
  }
  for (const char* text : {"", " 1", "1 ", "+1", "-1", "1.", "1,0", "1e5", "0x1", "a", "/", ":",
                           "\xD9\xA1", "\xC2\xB2"}) {
    EXPECT_FALSE(IsDigits(text)) << text;
  }
}

TEST(DigitsValueTest, ReadsUpToNineDigits) {
  EXPECT_EQ(DigitsValue("0"), 0);
  EXPECT_EQ(DigitsValue("0007"), 7);
  EXPECT_EQ(DigitsValue("999999999"), 999999999);
  for (const char* text : {"", "1234567890", "0000000001", "-1", " 1", "1a"}) {
    EXPECT_EQ(DigitsValue(text), -1) << text;
  }
}

struct NumberCase {
  const char* text;
  double value;
};

const NumberCase kNumbers[] = {
    {"1a", 1},
    {" 7 days", 7},
    {"-1", -1},
    {"365.4", 365.4},
    {"1e9", 1},
    {"", 0},
    {"abc", 0},
    {"0", 0},
    {"007", 7},
    {"+5", 5},
    {"\t 5", 5},
    {" \t-5", -5},
    {"\n5", 0},
    {"- 5", 0},
    {"--5", 0},
    {"+-5", 0},
    {"5-", 5},
    {"5+3", 5},
    {".5", 0.5},
    {"-.5", -0.5},
    {"5.", 5},
    {".", 0},
    {"+", 0},
    {"-", 0},
    {"1.2.3", 1.2},
    {"1..5", 1},
    {"..5", 0},
    {"1,5", 1},
    {"1 000", 1},
    {"1'000", 1},
    {"0x10", 0},
    {"&h10", 0},
    {"1d5", 1},
    {"inf", 0},
    {"nan", 0},
    {"014x", 14},
    {"2460", 2460},
    {"99999999999", 99999999999.0},
    {"0.000000001", 1e-9},
    {"123456789.5", 123456789.5},
    {"-0.25", -0.25},
    {"\xD9\xA1", 0},
    {"\xC2\xA0"
     "5",
     0},
    {"5\xC3\xA9", 5},
    // Capped.
    {"1000000000000000000", 1e18},
    {"1000000000000000001", 1e18},
    {"99999999999999999999999999999999999999999999", 1e18},
    {"-99999999999999999999999999999999999999999999", -1e18},
    {"99999999999999999999999999999999999999999999.999999999999", 1e18},
    {"000000000000000000000000000000000000000000000001", 1},
};

TEST(LeadingNumberTest, ReadsTheNumberThatATextBeginsWith) {
  for (const NumberCase& c : kNumbers) EXPECT_DOUBLE_EQ(LeadingNumber(c.text), c.value) << c.text;
}

// However many decimals there are, a number above a limit is above it.
TEST(LeadingNumberTest, TakesEveryDecimalIntoAccount) {
  EXPECT_GT(LeadingNumber("365.0000000001"), 365.0);
  EXPECT_GT(LeadingNumber("0.5000000000001"), 0.5);
  EXPECT_GT(LeadingNumber("0.00000000000000000001"), 0.0);
  EXPECT_LT(LeadingNumber("0.3333333333333333333333333333"), 0.3333333333333334);
}

TEST(RoundHalfToEvenTest, RoundsToTheNearestWholeNumber) {
  const std::pair<double, long long> cases[] = {{0, 0},
                                                {0.4, 0},
                                                {0.5, 0},
                                                {0.6, 1},
                                                {1.4, 1},
                                                {1.5, 2},
                                                {2.5, 2},
                                                {3.5, 4},
                                                {4.5, 4},
                                                {364.5, 364},
                                                {365.5, 366},
                                                {-0.4, 0},
                                                {-0.5, 0},
                                                {-0.6, -1},
                                                {-1.5, -2},
                                                {-2.5, -2},
                                                {-3.5, -4},
                                                {1e18, 1000000000000000000},
                                                {-1e18, -1000000000000000000},
                                                {0.49999999999999994, 0},
                                                {4503599627370497.5, 4503599627370498},
                                                {9007199254740993.0, 9007199254740992}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundHalfToEven(value), rounded) << value;
}

TEST(RoundHalfToEvenTest, AgreesWithTheMachinesOwnRounding) {
  for (int quarter = -40000; quarter <= 40000; ++quarter) {
    const double value = quarter / 4.0;
    ASSERT_EQ(RoundHalfToEven(value), static_cast<long long>(std::nearbyint(value))) << value;
  }
}

TEST(AppendNumberTest, PadsWithZeros) {
  const auto number = [](int value, int width) {
    std::string text = "x";
    AppendNumber(text, value, width);
    return text;
  };
  EXPECT_EQ(number(0, 0), "x0");
  EXPECT_EQ(number(7, 2), "x07");
  EXPECT_EQ(number(12, 2), "x12");
  EXPECT_EQ(number(123, 2), "x123");
  EXPECT_EQ(number(50, 4), "x0050");
  EXPECT_EQ(number(4952, 0), "x4952");
  EXPECT_EQ(number(2147483647, 0), "x2147483647");
  EXPECT_EQ(number(-2147483647 - 1, 0), "x-2147483648");
}

// --- Independence of the process locale

// Decimal comma, grouped digits and a letter case of its own, as some languages have them.
class ForeignPunctuation : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class ForeignLetters : public std::ctype<char> {
 protected:
  char do_tolower(char c) const override {
    return c == 'I' ? '\x01' : std::ctype<char>::do_tolower(c);
  }
  const char* do_tolower(char* begin, const char* end) const override {
    std::transform(begin, const_cast<char*>(end), begin, [this](char c) { return do_tolower(c); });
    return end;
  }
};

class ForeignLocale {
 public:
  explicit ForeignLocale(const char* cLocale)
      : before_(std::locale::global(std::locale(
            std::locale(std::locale::classic(), new ForeignPunctuation), new ForeignLetters))) {
    // A locale that the machine lacks leaves the C library as it is.
    std::setlocale(LC_ALL, cLocale);
  }
  ~ForeignLocale() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }
  ForeignLocale(const ForeignLocale&) = delete;
  ForeignLocale& operator=(const ForeignLocale&) = delete;

 private:
  std::locale before_;
};

TEST(LocaleIndependenceTest, LettersAndNumbersAreTheSameInEveryProcessLocale) {
  for (const char* name : {"C", "de_DE.UTF-8", "tr_TR.UTF-8", "tr_TR.ISO-8859-9"}) {
    SCOPED_TRACE(name);
    const ForeignLocale foreign(name);
    EXPECT_EQ(ToLower("VIOLET \xC3\x89"), "violet \xC3\xA9");
    EXPECT_EQ(ToUpper("violet"), "VIOLET");
    EXPECT_TRUE(EqualIgnoringCase("VIOLET", "violet"));
    EXPECT_EQ(LeadingNumber("0.5"), 0.5);
    EXPECT_EQ(LeadingNumber("365.4"), 365.4);
    EXPECT_EQ(LeadingNumber("1,5"), 1);
    EXPECT_EQ(CompareDates(On(2014, 12, 22), On(2001, 6, 1), DifferenceForm::kDaysOnly),
              "(4952 days past)");
    std::string number;
    AppendNumber(number, 1234567);
    EXPECT_EQ(number, "1234567");
    DateField field;
    EXPECT_EQ(ReadDateField("_SIMH", field), DateFieldFault::kNone);
    EXPECT_TRUE(field.isFeast);
    EXPECT_EQ(FormatDate(On(2014, 12, 31), MonthFirst()), "12/31/2014");
  }
}

}  // namespace
}  // namespace tidewarden::test
