// The user's guide: its topics in order, their sections, and the places that links lead to.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidewarden {

// From one heading to the next.
struct GuideSection {
  std::string title;   // without marks
  std::string anchor;  // unlike every other one of the topic
  std::string text;    // what follows the heading, without marks, a line for each paragraph
};

struct GuideTopic {
  std::string name;                    // by which it is asked for: "alarms" for alarms.md
  std::string title;                   // its first heading
  std::string markdown;                // as it is to be drawn
  std::vector<GuideSection> sections;  // the first is the topic's own heading; at least one
};

// A place in the guide: a topic by its number, and an anchor in it, empty for its beginning.
struct GuidePlace {
  std::size_t topic = 0;
  std::string anchor;

  bool operator==(const GuidePlace&) const = default;
};

class Guide {
 public:
  // Gives the content of a file of the guide by its name without a folder; empty for a missing one.
  using Reader = std::function<std::string(const std::string& fileName)>;

  // Reads "index.md", and in the order of its links to other files of the guide all of these. A
  // plain text (".txt") becomes a topic that shows it line by line, with the link's text for title.
  explicit Guide(const Reader& read);

  // The contents first; never empty.
  [[nodiscard]] const std::vector<GuideTopic>& topics() const { return topics_; }

  // Where a link or a topic's name leads: "alarms", "alarms#the-sound",
  // "../guide/alarms.md#the-sound" or, seen from the topic `from`, "#the-sound". Letter case does
  // not matter, nor do folders. Nothing for a topic or an anchor that does not exist.
  [[nodiscard]] std::optional<GuidePlace> Locate(std::string_view target,
                                                 std::size_t from = 0) const;

  // The section in which a place lies; the first one for an anchor that does not exist.
  [[nodiscard]] std::size_t SectionOf(const GuidePlace& place) const;

 private:
  void Add(const std::string& fileName, const std::string& title, const std::string& content);

  std::vector<GuideTopic> topics_;
};

}  // namespace tidewarden
