// The guide as manual pages: the same Markdown written in the language of man(7).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

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

// On which manual page each part of the guide stands, so that a link from one page to another can
// tell where its target is.
class ManPlaces {
 public:
  // `page` is a page's name with its section, "tidewarden-dates(5)"; `source` its text, the
  // includes still in it.
  void Add(const std::string& page, std::string_view source);

  // The page that has the target of a link on the page `from`, for example
  // "guide/events.md#yearly": `from` itself where that has it, and for an anchor alone. A target
  // without an anchor is where any part of its text is. Empty when no page has it.
  [[nodiscard]] std::string PageOf(std::string_view target, const std::string& from) const;

 private:
  struct Part {
    std::string file;    // "events.md"
    std::string anchor;  // empty for the whole of it
    std::string page;
  };

  std::vector<Part> parts_;
};

// A manual page. The Markdown begins with "# NAME: what it is"; the levels below become sections
// and subsections. Links are left as their text; behind it stands the page that has the target
// where that is another one, and the address behind one to an https address. Pictures are left out
// with the paragraph that holds nothing else. A table becomes a list: its first column the terms,
// the others what is said of them. Every character that is not ASCII is written as an escape, so
// that the page looks the same in every locale.
[[nodiscard]] std::string WriteManPage(const ManHead& head, std::string_view markdown,
                                       const ManPlaces& places = {});

}  // namespace tidewarden
