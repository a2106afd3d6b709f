// Reading and writing settings by their qualified key, "Section/Name" or a bare name.
//
// The section comes from the key's prefix, in any letter case: "alarm/", "customizer/", "edit/",
// "printing/" or "settings/". Every other key belongs whole to the section "Options". No error
// is reported: a store that cannot be read gives the default and is not written to.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/settings_store.h"

namespace tidewarden::modGetSetSaveSet {

// The mode that keeps the letter case of a value; any other mode, also one that differs in case,
// lower-cases the result.
inline constexpr std::string_view kKeepCaps = "KeepCaps";

// The stored value, or `defaultValue` when there is none or it is empty; a default that is not
// empty is then stored as it was passed. `key` loses its section prefix.
std::string GetSet(SettingsStore& store, std::string& key, const std::string& defaultValue,
                   const std::string& mode);

// Stores a value. `key` loses its section prefix.
void SaveSet(SettingsStore& store, std::string& key, const std::string& value);

// A key of the program with the default and the mode that every reader of it passes.
struct Setting {
  std::string_view key;
  std::string_view defaultValue;
  std::string_view mode{};
};

// GetSet and SaveSet for a known key, or with a default that is worked out at run time.
[[nodiscard]] std::string Get(SettingsStore& store, const Setting& setting);
[[nodiscard]] std::string Get(SettingsStore& store, const Setting& setting,
                              const std::string& defaultValue);
void Save(SettingsStore& store, const Setting& setting, const std::string& value);

// The value as it is stored, letter case included; the empty text when there is none. Never
// writes.
[[nodiscard]] std::string Stored(SettingsStore& store, const Setting& setting);

// SaveSet for several keys at once, each with its value, for a caller who has to tell the user how
// it ended: every value is stored or none.
[[nodiscard]] Status SaveAll(SettingsStore& store,
                             const std::vector<std::pair<std::string, std::string>>& values);

// Removes a key, addressed as GetSet does.
void Delete(SettingsStore& store, const Setting& setting);

// The three ways of testing a boolean setting. They are not interchangeable: an unrecognized
// text is false for the first and true for the second.
[[nodiscard]] bool isTrue(std::string_view value);
[[nodiscard]] bool isNotFalse(std::string_view value);

// "true" or "false" in any case, or a complete number, which is true unless 0. Blanks around it
// are ignored. Any other text gives `otherwise`.
[[nodiscard]] bool toBoolean(std::string_view value, bool otherwise);

}  // namespace tidewarden::modGetSetSaveSet
