#include "guide/guide_search.h"

#include <algorithm>
#include <numeric>

#include "dates/text.h"

namespace tidewarden {
namespace {

// What a word is worth in each place. A topic of that title comes before any number of sections
// that only speak of it.
constexpr int kInText = 1;
constexpr int kInHeading = 10;
constexpr int kInTopicTitle = 60;
// The same by how much of a longer word it is.
constexpr int kWholeWord = 20;
constexpr int kFrontOfWord = 4;
constexpr int kInsideWord = 1;
constexpr std::size_t kMostPlaces = 4;  // beyond which further ones of a word count no more
constexpr std::size_t kExcerptBefore = 40;
constexpr std::size_t kExcerpt = 120;

bool IsWhiteSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Letters and digits of every script: what is not ASCII counts as a letter.
bool IsWordByte(char c) {
  const char lower = ToLowerAscii(c);
  return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') ||
         static_cast<unsigned char>(c) >= 0x80;
}

// The length in bytes of `word` at the front of `text`; 0 when the text begins with something else.
// The two may differ in length, because letter cases do.
std::size_t LengthAtFront(std::string_view text, std::string_view word) {
  const std::size_t whole = text.size();
  while (!word.empty()) {
    if (text.empty() || ToLower(TakeCharacter(text)) != TakeCharacter(word)) return 0;
  }
  return whole - text.size();
}

int WorthAt(std::string_view text, TextRange range) {
  const bool atFront = range.begin == 0 || !IsWordByte(text[range.begin - 1]);
  const bool atEnd = range.end == text.size() || !IsWordByte(text[range.end]);
  return atFront ? (atEnd ? kWholeWord : kFrontOfWord) : kInsideWord;
}

// What the best places of a word in a text are worth; 0 when it is not there at all.
int WorthIn(std::string_view text, const std::string& word, std::size_t mostPlaces) {
  std::vector<int> worths;
  for (const TextRange& range : FindWords(text, {word})) worths.push_back(WorthAt(text, range));
  std::sort(worths.rbegin(), worths.rend());
  if (worths.size() > mostPlaces) worths.resize(mostPlaces);
  return std::accumulate(worths.begin(), worths.end(), 0);
}

int Worth(const GuideTopic& topic, const GuideSection& section, const std::string& word) {
  const bool isBeginning = &section == &topic.sections.front();
  return WorthIn(section.title, word, 1) * (isBeginning ? kInTopicTitle : kInHeading) +
         WorthIn(section.text, word, kMostPlaces) * kInText;
}

// 0 when a word is missing.
int Score(const GuideTopic& topic, const GuideSection& section,
          const std::vector<std::string>& words) {
  int score = 0;
  for (const std::string& word : words) {
    const int worth = Worth(topic, section, word);
    if (worth == 0) return 0;
    score += worth;
  }
  return score;
}

std::string Excerpt(std::string_view text, const std::vector<std::string>& words) {
  const std::vector<TextRange> places = FindWords(text, words);
  if (places.empty()) return {};
  const std::string_view before =
      LastCharacters(text.substr(0, places.front().begin), kExcerptBefore);
  auto from = static_cast<std::size_t>(before.data() - text.data());
  // From the beginning of a line or a word.
  const std::size_t lineEnd = before.rfind('\n');
  const std::size_t gap = lineEnd != std::string_view::npos ? lineEnd : before.find(' ');
  if (gap != std::string_view::npos && (from > 0 || lineEnd != std::string_view::npos)) {
    from += gap + 1;
  }
  const std::string_view part = FirstCharacters(text.substr(from), kExcerpt);
  const bool fromMiddle = from > 0 && text[from - 1] != '\n';
  std::string excerpt = fromMiddle ? "… " : "";
  for (const char c : part) {
    if (!IsWhiteSpace(c)) {
      excerpt.push_back(c);
    } else if (!excerpt.empty() && excerpt.back() != ' ') {
      excerpt.push_back(' ');
    }
  }
  if (from + part.size() < text.size()) excerpt += " …";
  return excerpt;
}

}  // namespace

std::vector<std::string> SearchWords(std::string_view query) {
  std::vector<std::string> words;
  std::string word;
  const auto end = [&] {
    if (!word.empty() && std::find(words.begin(), words.end(), word) == words.end()) {
      words.push_back(word);
    }
    word.clear();
  };
  for (const char c : ToLower(query)) {
    if (IsWhiteSpace(c)) {
      end();
    } else {
      word.push_back(c);
    }
  }
  end();
  return words;
}

std::vector<TextRange> FindWords(std::string_view text, const std::vector<std::string>& words) {
  std::vector<TextRange> ranges;
  for (std::size_t at = 0; at < text.size();) {
    std::string_view rest = text.substr(at);
    std::size_t longest = 0;
    for (const std::string& word : words) longest = std::max(longest, LengthAtFront(rest, word));
    if (longest > 0) {
      ranges.push_back({at, at + longest});
      at += longest;
    } else {
      static_cast<void>(TakeCharacter(rest));
      at = text.size() - rest.size();
    }
  }
  return ranges;
}

std::vector<GuideHit> SearchGuide(const Guide& guide, std::string_view query) {
  const std::vector<std::string> words = SearchWords(query);
  std::vector<GuideHit> hits;
  if (words.empty()) return hits;
  for (std::size_t i = 0; i < guide.topics().size(); ++i) {
    const GuideTopic& topic = guide.topics()[i];
    for (const GuideSection& section : topic.sections) {
      const int score = Score(topic, section, words);
      if (score == 0) continue;
      const bool isBeginning = &section == &topic.sections.front();
      GuideHit hit;
      hit.place = {i, isBeginning ? std::string() : section.anchor};
      hit.title = isBeginning ? section.title : topic.title + ": " + section.title;
      hit.excerpt = Excerpt(section.text, words);
      hit.score = score;
      hits.push_back(std::move(hit));
    }
  }
  std::stable_sort(hits.begin(), hits.end(),
                   [](const GuideHit& a, const GuideHit& b) { return a.score > b.score; });
  return hits;
}

}  // namespace tidewarden
