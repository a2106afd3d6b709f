#include "core/get_set_save_set.h"

#include <algorithm>

#include "dates/text.h"

namespace tidewarden::modGetSetSaveSet {
namespace {

// Prefixes in the order in which they are tried; the section is the prefix without its slash.
constexpr std::string_view kSections[] = {"Alarm", "Customizer", "Edit", "Printing", "Settings"};
constexpr std::string_view kOtherSection = "Options";

// The section of a key, whose prefix is removed.
std::string_view TakeSection(std::string& key) {
  for (const std::string_view section : kSections) {
    const bool fits =
        key.size() > section.size() && key[section.size()] == '/' &&
        EqualIgnoringAsciiCase(section, std::string_view(key).substr(0, section.size()));
    if (fits) {
      key.erase(0, section.size() + 1);
      return section;
    }
  }
  return kOtherSection;
}

// Digits with at most one "." and an optional sign, nothing else.
bool IsCompleteNumber(std::string_view text) {
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
  const auto points = std::count(text.begin(), text.end(), '.');
  return points <= 1 && text.size() > static_cast<std::size_t>(points) &&
         text.find_first_not_of("0123456789.") == std::string_view::npos;
}

}  // namespace

std::string GetSet(SettingsStore& store, std::string& key, const std::string& defaultValue,
                   const std::string& mode) {
  const std::string_view section = TakeSection(key);
  const auto inMode = [&](const std::string& text) {
    return mode == kKeepCaps ? text : ToLower(text);
  };
  std::string value;
  if (!store.Read(section, key, value).ok()) return inMode(defaultValue);
  if (!value.empty()) return inMode(value);
  if (!defaultValue.empty()) {
    // A store that cannot be written still has to answer; the default is tried again next time.
    static_cast<void>(store.Write(section, key, defaultValue).ok());
  }
  return inMode(defaultValue);
}

void SaveSet(SettingsStore& store, std::string& key, const std::string& value) {
  const std::string_view section = TakeSection(key);
  // Losing a preference never stops the program; the store stays as it was.
  static_cast<void>(store.Write(section, key, value).ok());
}

std::string Get(SettingsStore& store, const Setting& setting) {
  return Get(store, setting, std::string(setting.defaultValue));
}

std::string Get(SettingsStore& store, const Setting& setting, const std::string& defaultValue) {
  std::string key(setting.key);
  return GetSet(store, key, defaultValue, std::string(setting.mode));
}

void Save(SettingsStore& store, const Setting& setting, const std::string& value) {
  std::string key(setting.key);
  SaveSet(store, key, value);
}

std::string Stored(SettingsStore& store, const Setting& setting) {
  return Get(store, {setting.key, "", kKeepCaps});
}

Status SaveAll(SettingsStore& store,
               const std::vector<std::pair<std::string, std::string>>& values) {
  std::vector<SettingValue> all;
  all.reserve(values.size());
  for (const auto& [key, value] : values) {
    std::string name = key;
    const std::string_view section = TakeSection(name);
    all.push_back({std::string(section), std::move(name), value});
  }
  return store.WriteAll(all);
}

void Delete(SettingsStore& store, const Setting& setting) {
  std::string key(setting.key);
  const std::string_view section = TakeSection(key);
  static_cast<void>(store.Delete(section, key).ok());
}

bool isTrue(std::string_view value) {
  return value == "true";
}

bool isNotFalse(std::string_view value) {
  return value != "false";
}

bool toBoolean(std::string_view value, bool otherwise) {
  const std::string text = ToLower(Trim(value));
  if (text == "true") return true;
  if (text == "false") return false;
  if (IsCompleteNumber(text)) return LeadingNumber(text) != 0;
  return otherwise;
}

}  // namespace tidewarden::modGetSetSaveSet
