#include "customizer/draft_settings.h"

#include "dates/text.h"

namespace tidewarden {
namespace {

std::pair<std::string, std::string> PlaceOf(std::string_view section, std::string_view name) {
  return {ToLower(section), ToLower(name)};
}

}  // namespace

Status DraftSettings::Read(std::string_view section, std::string_view name, std::string& value) {
  const auto change = changes_.find(PlaceOf(section, name));
  if (change == changes_.end()) return stored_.Read(section, name, value);
  value = change->second;
  return {};
}

Status DraftSettings::Write(std::string_view section, std::string_view name,
                            std::string_view value) {
  changes_[PlaceOf(section, name)] = value;
  return {};
}

// A missing value and an empty one read alike.
Status DraftSettings::Delete(std::string_view section, std::string_view name) {
  return Write(section, name, {});
}

}  // namespace tidewarden
