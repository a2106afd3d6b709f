// Text as content of an HTML 4.01 page in the character set ISO-8859-1.
//
// Only what a reader of the page would misunderstand is changed, so that ordinary text stands in
// the page as it was typed.
#pragma once

#include <string>
#include <string_view>

namespace tidewarden {

// Appends UTF-8 text as the content of an element. Printable ASCII and U+00A0 to U+00FF are single
// bytes; every other character is a decimal reference ("&#1046;"), a byte that belongs to no
// character too, as if it were Latin-1. "<" is written as "&lt;" where it would begin a tag or a
// comment (before an ASCII letter, "/", "!" and "?"), and "&" as "&amp;" where it would begin a
// reference; elsewhere both stay.
void AppendHtmlText(std::string& out, std::string_view text);

// Appends the name of a font as a value in a style sheet inside the page. What would end the value,
// its rule or the style sheet is left out: "<", "{", "}", ";" and control characters. Characters
// beyond U+00FF are escapes of CSS, because there are no references inside a style sheet.
void AppendFontName(std::string& out, std::string_view name);

}  // namespace tidewarden
