#include "guide/guide.h"

#include <algorithm>

#include "dates/text.h"
#include "guide/markdown.h"

namespace tidewarden {
namespace {

constexpr std::string_view kIndex = "index.md";
constexpr std::string_view kPlainEnding = ".txt";

std::string_view FileNameOf(std::string_view target) {
  target = target.substr(0, target.find('#'));
  return target.substr(target.rfind('/') + 1);
}

std::string_view NameOf(std::string_view target) {
  const std::string_view fileName = FileNameOf(target);
  return fileName.substr(0, fileName.rfind('.'));
}

bool IsOutside(std::string_view target) {
  return target.find(':') != std::string_view::npos;
}

// Links to files of the guide, in order.
std::vector<Span> LinksIn(const std::string& markdown) {
  std::vector<Span> links;
  for (const Block& block : ReadMarkdown(markdown)) {
    for (const Span& span : ReadSpans(block.text)) {
      if (span.kind == SpanKind::kLink && !IsOutside(span.target)) links.push_back(span);
    }
  }
  return links;
}

std::string FreeAnchor(const GuideTopic& topic, const std::string& title) {
  const std::string wanted = AnchorOf(title);
  const auto isTaken = [&topic](const std::string& anchor) {
    return std::any_of(topic.sections.begin(), topic.sections.end(),
                       [&](const GuideSection& section) { return section.anchor == anchor; });
  };
  std::string anchor = wanted;
  for (int i = 1; isTaken(anchor); ++i) {
    anchor = wanted + "-";
    AppendNumber(anchor, i);
  }
  return anchor;
}

void CutIntoSections(GuideTopic& topic) {
  for (const Block& block : ReadMarkdown(topic.markdown)) {
    if (block.kind == BlockKind::kHeading || topic.sections.empty()) {
      const bool isHeading = block.kind == BlockKind::kHeading;
      const std::string title = isHeading ? PlainText(block) : topic.name;
      topic.sections.push_back({title, FreeAnchor(topic, title), {}});
      if (isHeading) continue;
    }
    topic.sections.back().text.append(PlainText(block)).push_back('\n');
  }
  if (topic.sections.empty()) topic.sections.push_back({topic.name, {}, {}});
}

}  // namespace

Guide::Guide(const Reader& read) {
  const std::string index = read(std::string(kIndex));
  Add(std::string(kIndex), {}, index);
  for (const Span& link : LinksIn(index)) {
    const std::string fileName(FileNameOf(link.target));
    if (Locate(NameOf(fileName))) continue;
    const std::string content = read(fileName);
    if (!content.empty()) Add(fileName, link.text, content);
  }
}

void Guide::Add(const std::string& fileName, const std::string& title, const std::string& content) {
  GuideTopic topic;
  topic.name = NameOf(fileName);
  topic.markdown = content;
  if (fileName.ends_with(kPlainEnding)) {
    topic.markdown = "# " + title + "\n\n```\n" + content + "```\n";
  }
  CutIntoSections(topic);
  topic.title = topic.sections.front().title;
  topics_.push_back(std::move(topic));
}

std::optional<GuidePlace> Guide::Locate(std::string_view target, std::size_t from) const {
  if (IsOutside(target)) return std::nullopt;
  GuidePlace place{from, {}};
  const std::size_t mark = target.find('#');
  const std::string name = ToLower(NameOf(target));
  if (!name.empty()) {
    const auto found = std::find_if(topics_.begin(), topics_.end(),
                                    [&](const GuideTopic& topic) { return topic.name == name; });
    if (found == topics_.end()) return std::nullopt;
    place.topic = static_cast<std::size_t>(found - topics_.begin());
  } else if (mark == std::string_view::npos) {
    return std::nullopt;
  }
  if (mark == std::string_view::npos) return place;
  place.anchor = ToLower(target.substr(mark + 1));
  const std::size_t section = SectionOf(place);
  if (topics_.at(place.topic).sections[section].anchor != place.anchor) return std::nullopt;
  if (section == 0) place.anchor.clear();
  return place;
}

std::size_t Guide::SectionOf(const GuidePlace& place) const {
  const std::vector<GuideSection>& sections = topics_.at(place.topic).sections;
  const auto found =
      std::find_if(sections.begin(), sections.end(),
                   [&](const GuideSection& section) { return section.anchor == place.anchor; });
  return found == sections.end() ? 0 : static_cast<std::size_t>(found - sections.begin());
}

}  // namespace tidewarden
