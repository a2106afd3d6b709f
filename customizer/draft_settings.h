// The settings as they would be if the user's changes were saved.
//
// The programs' own readers can be run on it to show what a change does. They store defaults and
// mend values while they read; here all that stays in memory.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "core/settings_store.h"

namespace tidewarden {

class DraftSettings : public SettingsStore {
 public:
  // `stored` outlives the draft and is only read.
  explicit DraftSettings(SettingsStore& stored) : stored_(stored) {}

  Status Read(std::string_view section, std::string_view name, std::string& value) override;
  Status Write(std::string_view section, std::string_view name, std::string_view value) override;
  Status Delete(std::string_view section, std::string_view name) override;

 private:
  SettingsStore& stored_;
  std::map<std::pair<std::string, std::string>, std::string> changes_;  // by names in lower case
};

}  // namespace tidewarden
