#include "guide/docs_session.h"

#include <algorithm>

#include "dates/text.h"

namespace tidewarden {

DocsSession::DocsSession(const Guide& guide) : guide_(guide) {
  ListTopics();
}

bool DocsSession::Open(std::string_view target) {
  const auto place = guide_.Locate(target, place_.topic);
  GoTo(place.value_or(GuidePlace{}));
  return place.has_value();
}

bool DocsSession::Begin(std::string_view target) {
  const bool exists = Open(target);
  before_.clear();
  return exists;
}

void DocsSession::OpenRow(std::size_t row) {
  if (row < rows_.size()) GoTo(rows_[row].place);
}

LinkKind DocsSession::Follow(std::string_view link) {
  if (const auto place = guide_.Locate(link, place_.topic)) {
    GoTo(*place);
    return LinkKind::kInside;
  }
  // Nothing but web pages: a link must not start programs or open files.
  return link.starts_with("https://") ? LinkKind::kOutside : LinkKind::kNowhere;
}

void DocsSession::GoTo(const GuidePlace& place) {
  if (place == place_) return;
  before_.push_back(place_);
  behind_.clear();
  place_ = place;
}

void DocsSession::Back() {
  if (before_.empty()) return;
  behind_.push_back(place_);
  place_ = before_.back();
  before_.pop_back();
}

void DocsSession::Forward() {
  if (behind_.empty()) return;
  before_.push_back(place_);
  place_ = behind_.back();
  behind_.pop_back();
}

void DocsSession::Search(std::string_view query) {
  words_ = SearchWords(query);
  if (!IsSearching()) {
    ListTopics();
    return;
  }
  rows_.clear();
  for (GuideHit& hit : SearchGuide(guide_, query)) {
    rows_.push_back({std::move(hit.title), std::move(hit.excerpt), std::move(hit.place)});
  }
}

void DocsSession::ListTopics() {
  rows_.clear();
  for (std::size_t i = 0; i < guide_.topics().size(); ++i) {
    rows_.push_back({guide_.topics()[i].title, {}, {i, {}}});
  }
}

std::optional<std::size_t> DocsSession::CurrentRow() const {
  // Among the topics an anchor makes no difference.
  const auto found = std::find_if(rows_.begin(), rows_.end(), [this](const DocsRow& row) {
    return IsSearching() ? row.place == place_ : row.place.topic == place_.topic;
  });
  if (found == rows_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows_.begin());
}

std::string DocsSession::Summary() const {
  if (!IsSearching()) return {};
  if (rows_.empty()) return "Nothing found";
  std::string summary;
  AppendNumber(summary, static_cast<int>(rows_.size()));
  return summary + (rows_.size() == 1 ? " place" : " places");
}

void DocsSession::Enlarge() {
  zoom_ = std::min(zoom_ + kZoomStep, kMostZoom);
}

void DocsSession::Reduce() {
  zoom_ = std::max(zoom_ - kZoomStep, kLeastZoom);
}

}  // namespace tidewarden
