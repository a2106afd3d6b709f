// Text as the engine sees it: UTF-8 in std::string, counted in characters (code points).
//
// Everything here is independent of the process locale, never throws on bad text and never
// splits a character. A byte that does not belong to a valid UTF-8 sequence counts as one
// character of its own and is kept as it stands.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidewarden {

// True when every byte belongs to a well-formed UTF-8 sequence (no overlong forms, no
// surrogates, nothing above U+10FFFF).
[[nodiscard]] bool IsValidUtf8(std::string_view text);

// True when every byte is below 0x80.
[[nodiscard]] bool IsAscii(std::string_view text);

// Number of characters.
[[nodiscard]] std::size_t CountCharacters(std::string_view text);

// The first / last `count` characters, the whole text when it has fewer.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);
[[nodiscard]] std::string_view LastCharacters(std::string_view text, std::size_t count);

// What follows the first `count` characters, empty when there are not so many.
[[nodiscard]] std::string_view WithoutFirstCharacters(std::string_view text, std::size_t count);

// Upper or lower case by the simple one-to-one mapping of the Unicode Character Database,
// character by character: the number of characters never changes ("ß" stays "ß").
[[nodiscard]] std::string ToLower(std::string_view text);
[[nodiscard]] std::string ToUpper(std::string_view text);
[[nodiscard]] char32_t ToLower(char32_t character);
[[nodiscard]] char32_t ToUpper(char32_t character);

// ASCII only: the lower-case letter of 'A' to 'Z', any other byte unchanged.
[[nodiscard]] constexpr char ToLowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Equality after lower-casing both texts.
[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Equality without regard to the case of ASCII letters; any other byte must be the same.
[[nodiscard]] bool EqualIgnoringAsciiCase(std::string_view a, std::string_view b);

// Order of the lower-cased texts by code points, the shorter first when one begins with the
// other. Negative, zero or positive as for memcmp.
[[nodiscard]] int CompareIgnoringCase(std::string_view a, std::string_view b);

// The text without the blanks (U+0020 only) at both ends.
[[nodiscard]] constexpr std::string_view Trim(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// True for a text of one or more ASCII digits and nothing else.
[[nodiscard]] bool IsDigits(std::string_view text);

// The number that a text begins with: blanks and tabs are skipped; then an optional sign and
// decimal digits with at most one "."; reading stops at the first other character. There is
// no exponent, no hexadecimal form and no grouping. 0 when nothing can be read. The value is the
// double nearest to what is written, capped at ±1e18.
[[nodiscard]] double LeadingNumber(std::string_view text);

// The nearest whole number, halves to even ("0.5" gives 0, "1.5" and "2.5" give 2). `value`
// is within ±1e18.
[[nodiscard]] long long RoundHalfToEven(double value);

// The value of a text of digits (IsDigits) with at most nine of them; -1 for any other text.
[[nodiscard]] constexpr int DigitsValue(std::string_view text) {
  if (text.empty() || text.size() > 9) return -1;
  int value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return -1;
    value = value * 10 + (c - '0');
  }
  return value;
}

// Appends `value` in decimal, padded with leading zeros to at least `width` digits, 0 to 20; a
// minus sign comes before the zeros.
void AppendNumber(std::string& out, int value, int width = 0);

// Appends a character in UTF-8.
void AppendCharacter(std::string& out, char32_t character);

// Takes the next character off the front of a non-empty text. A byte that starts no valid
// sequence is returned as 0x110000 + byte, outside Unicode.
[[nodiscard]] char32_t TakeCharacter(std::string_view& text);

}  // namespace tidewarden
