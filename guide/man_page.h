// The guide as manual pages: the same Markdown written in the language of man(7).
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tidewarden {

struct ManHead {
  std::string name;     // "tidewarden-dates"
  std::string section;  // "5"
  std::string date;     // "2026-11-21", of the text
  std::string version;  // of the program
};

// What stands in place of an include that could not be found.
inline constexpr std::string_view kMissingInclude = "MISSING INCLUDE";

// Puts parts of the guide into a page: a line "<!-- include NAME -->" becomes what `read` gives for
// NAME, the whole of a text without its first heading, and "<!-- include NAME#ANCHOR -->" the
// section of that anchor with all that is below it, its heading included. Headings keep their
// levels; with "include below" in place of "include" they go one level down. A part that is not
// there becomes kMissingInclude and the name. Included text is not searched for further includes.
[[nodiscard]] std::string PutIncludesIn(std::string_view page,
                                        const std::function<std::string(std::string_view)>& read);

// A manual page. The Markdown begins with "# NAME: what it is"; the levels below become sections
// and subsections. Links are left as their text, one to an https address has the address behind it;
// pictures are left out with the paragraph that holds nothing else. A table becomes a list: its
// first column the terms, the others what is said of them. Every character that is not ASCII is
// written as an escape, so that the page looks the same in every locale.
[[nodiscard]] std::string WriteManPage(const ManHead& head, std::string_view markdown);

}  // namespace tidewarden
