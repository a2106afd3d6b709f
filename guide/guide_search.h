// Finding words in the guide.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "guide/guide.h"

namespace tidewarden {

// A section in which every word of a search occurs, in its heading or in its text.
struct GuideHit {
  GuidePlace place;
  std::string title;    // of the section; of a later section than the first with its topic in front
  std::string excerpt;  // some text around the first word found, one line; empty for a mere heading
  int score = 0;        // higher is better
};

// Part of a text, in bytes, on whole characters.
struct TextRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool operator==(const TextRange&) const = default;
};

// The words of what a user typed: parted by white space, in lower case, each once.
[[nodiscard]] std::vector<std::string> SearchWords(std::string_view query);

// Where one of the words (see SearchWords) stands in a text, in the text's order, without regard to
// letter case and also inside longer words. Places do not overlap; where two words could begin, the
// longer one is taken.
[[nodiscard]] std::vector<TextRange> FindWords(std::string_view text,
                                               const std::vector<std::string>& words);

// All sections that hold every word, the best first; equally good ones in the guide's order. A word
// counts most in a topic's title, then in a section's heading, then in the text, there more as a
// whole word or at the front of one than inside one. No words, no hits.
[[nodiscard]] std::vector<GuideHit> SearchGuide(const Guide& guide, std::string_view query);

}  // namespace tidewarden
