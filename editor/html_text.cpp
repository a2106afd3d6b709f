#include "editor/html_text.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr char32_t kFirstLatin1 = 0xA0;
constexpr char32_t kLastLatin1 = 0xFF;
constexpr char32_t kBeyondUnicode = 0x110000;  // and up: bytes that belong to no character

// The named references that need no ";" behind them, from the table of named character references
// in the HTML standard (WHATWG), in the order of their bytes.
constexpr auto kOpenReferences = std::to_array<std::string_view>(
    {"AElig",  "AMP",    "Aacute", "Acirc",  "Agrave", "Aring",  "Atilde", "Auml",   "COPY",
     "Ccedil", "ETH",    "Eacute", "Ecirc",  "Egrave", "Euml",   "GT",     "Iacute", "Icirc",
     "Igrave", "Iuml",   "LT",     "Ntilde", "Oacute", "Ocirc",  "Ograve", "Oslash", "Otilde",
     "Ouml",   "QUOT",   "REG",    "THORN",  "Uacute", "Ucirc",  "Ugrave", "Uuml",   "Yacute",
     "aacute", "acirc",  "acute",  "aelig",  "agrave", "amp",    "aring",  "atilde", "auml",
     "brvbar", "ccedil", "cedil",  "cent",   "copy",   "curren", "deg",    "divide", "eacute",
     "ecirc",  "egrave", "eth",    "euml",   "frac12", "frac14", "frac34", "gt",     "iacute",
     "icirc",  "iexcl",  "igrave", "iquest", "iuml",   "laquo",  "lt",     "macr",   "micro",
     "middot", "nbsp",   "not",    "ntilde", "oacute", "ocirc",  "ograve", "ordf",   "ordm",
     "oslash", "otilde", "ouml",   "para",   "plusmn", "pound",  "quot",   "raquo",  "reg",
     "sect",   "shy",    "sup1",   "sup2",   "sup3",   "szlig",  "thorn",  "times",  "uacute",
     "ucirc",  "ugrave", "uml",    "uuml",   "yacute", "yen",    "yuml"});

bool IsLetter(char c) {
  return ToLowerAscii(c) >= 'a' && ToLowerAscii(c) <= 'z';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsHexDigit(char c) {
  return IsDigit(c) || (ToLowerAscii(c) >= 'a' && ToLowerAscii(c) <= 'f');
}

// Whether "<" and this text begin a tag or a comment.
bool BeginsMarkup(std::string_view behind) {
  if (behind.empty()) return false;
  const char next = behind.front();
  return IsLetter(next) || next == '/' || next == '!' || next == '?';
}

// Whether "&" and this text begin a character reference.
bool BeginsReference(std::string_view behind) {
  if (behind.empty()) return false;
  if (behind.front() == '#') {
    behind.remove_prefix(1);
    const bool isHex = !behind.empty() && ToLowerAscii(behind.front()) == 'x';
    if (isHex) behind.remove_prefix(1);
    return !behind.empty() && (isHex ? IsHexDigit(behind.front()) : IsDigit(behind.front()));
  }
  if (!IsLetter(behind.front())) return false;
  std::size_t end = 0;
  while (end < behind.size() && (IsLetter(behind[end]) || IsDigit(behind[end]))) ++end;
  if (end < behind.size() && behind[end] == ';') return true;
  return std::any_of(kOpenReferences.begin(), kOpenReferences.end(),
                     [behind](std::string_view name) { return behind.starts_with(name); });
}

bool IsLatin1(char32_t c) {
  return (c >= U' ' && c <= U'~') || (c >= kFirstLatin1 && c <= kLastLatin1);
}

char32_t Take(std::string_view& text) {
  const char32_t c = TakeCharacter(text);
  return c >= kBeyondUnicode ? c - kBeyondUnicode : c;
}

void AppendReference(std::string& out, char32_t c) {
  out += "&#";
  AppendNumber(out, static_cast<int>(c));
  out += ';';
}

// The digits and the blank that ends them.
void AppendCssEscape(std::string& out, char32_t c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string digits;
  for (; c > 0; c /= 16) digits.insert(digits.begin(), kDigits[c % 16]);
  out.append("\\").append(digits).append(" ");
}

}  // namespace

void AppendHtmlText(std::string& out, std::string_view text) {
  while (!text.empty()) {
    const char32_t c = Take(text);
    if (c == U'<' && BeginsMarkup(text)) {
      out += "&lt;";
    } else if (c == U'&' && BeginsReference(text)) {
      out += "&amp;";
    } else if (IsLatin1(c)) {
      out.push_back(static_cast<char>(c));
    } else {
      AppendReference(out, c);
    }
  }
}

void AppendFontName(std::string& out, std::string_view name) {
  constexpr std::u32string_view kLeftOut = U"<{};";
  while (!name.empty()) {
    const char32_t c = Take(name);
    if (kLeftOut.find(c) != std::u32string_view::npos) continue;
    if (IsLatin1(c)) {
      out.push_back(static_cast<char>(c));
    } else if (c > kLastLatin1) {
      AppendCssEscape(out, c);
    }
  }
}

}  // namespace tidewarden
