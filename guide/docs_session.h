// What the help window is doing: the place that is shown, the way back, and the search.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "guide/guide.h"
#include "guide/guide_search.h"

namespace tidewarden {

// A row of the list on the left: a topic, or during a search a hit.
struct DocsRow {
  std::string title;
  std::string detail;  // the excerpt of a hit
  GuidePlace place;
};

// What a link that was clicked leads to.
enum class LinkKind {
  kInside,   // the session has gone there
  kOutside,  // an https address, for the desktop to open
  kNowhere,  // neither: nothing has happened
};

class DocsSession {
 public:
  // Texts are drawn in the desktop's own size times a percentage between these.
  static constexpr int kLeastZoom = 60;
  static constexpr int kMostZoom = 300;
  static constexpr int kZoomStep = 10;

  // Begins at the contents. The guide outlives the session.
  explicit DocsSession(const Guide& guide);

  [[nodiscard]] const Guide& guide() const { return guide_; }
  [[nodiscard]] const GuideTopic& topic() const { return guide_.topics().at(place_.topic); }
  [[nodiscard]] const GuidePlace& place() const { return place_; }

  // Goes where a name or link leads (Guide::Locate); the place left can be gone back to. False, and
  // to the contents, when it does not exist.
  bool Open(std::string_view target);
  // The same at the start of the program: there is nothing to go back to.
  bool Begin(std::string_view target);
  // Goes to the place of a row; nothing for a row that is not there.
  void OpenRow(std::size_t row);
  LinkKind Follow(std::string_view link);

  [[nodiscard]] bool CanGoBack() const { return !before_.empty(); }
  [[nodiscard]] bool CanGoForward() const { return !behind_.empty(); }
  // Without effect when there is nothing to go to.
  void Back();
  void Forward();

  // Takes a new text to look for; rows() are then the hits. Without a word they are the topics.
  void Search(std::string_view query);
  [[nodiscard]] bool IsSearching() const { return !words_.empty(); }
  [[nodiscard]] const std::vector<DocsRow>& rows() const { return rows_; }
  // The row whose place is shown.
  [[nodiscard]] std::optional<std::size_t> CurrentRow() const;
  // What there is to say about the search: "3 places", "Nothing found"; empty without one.
  [[nodiscard]] std::string Summary() const;

  // The places of the search's words in a text (FindWords).
  [[nodiscard]] std::vector<TextRange> MatchesIn(std::string_view text) const {
    return FindWords(text, words_);
  }

  [[nodiscard]] int zoom() const { return zoom_; }  // percent
  void Enlarge();
  void Reduce();
  void ResetZoom() { zoom_ = 100; }

 private:
  void GoTo(const GuidePlace& place);
  void ListTopics();

  const Guide& guide_;
  GuidePlace place_;
  std::vector<GuidePlace> before_;
  std::vector<GuidePlace> behind_;
  std::vector<std::string> words_;
  std::vector<DocsRow> rows_;
  int zoom_ = 100;
};

}  // namespace tidewarden
