#include "core/ini_settings_store.h"

#include <algorithm>
#include <utility>

#include "core/text_encoding.h"
#include "dates/text.h"

namespace tidewarden {
namespace ini {
namespace {

enum class LineKind { kOther, kSection, kValue };

struct Line {
  std::size_t begin = 0;  // of the line in the text
  std::size_t end = 0;    // behind its line end
  LineKind kind = LineKind::kOther;
  std::string_view name;  // of the section or the value
  std::string_view value;
};

// Takes the line that begins at `begin`, which lies inside the text.
Line LineAt(std::string_view text, std::size_t begin) {
  Line line;
  line.begin = begin;
  const std::size_t feed = text.find('\n', begin);
  line.end = feed == std::string_view::npos ? text.size() : feed + 1;
  std::string_view content =
      text.substr(begin, (feed == std::string_view::npos ? text.size() : feed) - begin);
  if (content.ends_with('\r')) content.remove_suffix(1);
  if (begin == 0 && content.starts_with(kByteOrderMark)) {
    content.remove_prefix(kByteOrderMark.size());
  }
  const std::size_t equals = content.find('=');
  if (content.starts_with('[') && content.ends_with(']')) {
    line.kind = LineKind::kSection;
    line.name = content.substr(1, content.size() - 2);
  } else if (equals != std::string_view::npos && IsStorableName(content.substr(0, equals))) {
    line.kind = LineKind::kValue;
    line.name = content.substr(0, equals);
    line.value = content.substr(equals + 1);
  }
  return line;
}

// Calls `visit` with every value line of a section, until it returns false.
template <typename Visit>
void ForEachValue(std::string_view text, std::string_view section, Visit visit) {
  bool inside = false;
  for (std::size_t at = 0; at < text.size();) {
    const Line line = LineAt(text, at);
    at = line.end;
    if (line.kind == LineKind::kSection) inside = EqualIgnoringAsciiCase(line.name, section);
    if (inside && line.kind == LineKind::kValue && !visit(line)) return;
  }
}

std::optional<Line> FindLine(std::string_view text, std::string_view section,
                             std::string_view name) {
  std::optional<Line> found;
  ForEachValue(text, section, [&](const Line& line) {
    if (EqualIgnoringAsciiCase(line.name, name)) found = line;
    return !found;
  });
  return found;
}

// Behind the last value of a section, or behind its heading when it has none.
std::optional<std::size_t> EndOfSection(std::string_view text, std::string_view section) {
  std::optional<std::size_t> end;
  bool inside = false;
  for (std::size_t at = 0; at < text.size();) {
    const Line line = LineAt(text, at);
    at = line.end;
    if (line.kind == LineKind::kSection) inside = EqualIgnoringAsciiCase(line.name, section);
    if (inside && line.kind != LineKind::kOther) end = line.end;
  }
  return end;
}

std::string OneLine(std::string_view value) {
  std::string out(value);
  std::replace_if(
      out.begin(), out.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return out;
}

}  // namespace

bool IsStorableName(std::string_view name) {
  return name.find_first_of("=\r\n") == std::string_view::npos && !name.starts_with('[') &&
         !name.starts_with(';') && !name.starts_with('#');
}

std::optional<std::string_view> FindValue(std::string_view text, std::string_view section,
                                          std::string_view name) {
  const auto line = FindLine(text, section, name);
  return line ? std::optional(line->value) : std::nullopt;
}

std::string WithValue(std::string_view text, std::string_view section, std::string_view name,
                      std::string_view value) {
  std::string out(text);
  if (const auto line = FindLine(text, section, name)) {
    // The name keeps the letter case of its first write.
    out.replace(line->begin, line->end - line->begin,
                std::string(line->name) + "=" + OneLine(value) + "\n");
    return out;
  }
  const std::string added = std::string(name) + "=" + OneLine(value) + "\n";
  if (const auto end = EndOfSection(text, section)) {
    out.insert(*end, added);
    // The last line of the file may lack its end.
    if (*end > 0 && text[*end - 1] != '\n') out.insert(*end, 1, '\n');
    return out;
  }
  if (!out.empty() && !out.ends_with('\n')) out.push_back('\n');
  out += "[" + std::string(section) + "]\n" + added;
  return out;
}

std::string WithoutValue(std::string_view text, std::string_view section, std::string_view name) {
  std::string out;
  std::size_t kept = 0;
  ForEachValue(text, section, [&](const Line& line) {
    if (EqualIgnoringAsciiCase(line.name, name)) {
      out += text.substr(kept, line.begin - kept);
      kept = line.end;
    }
    return true;
  });
  out += text.substr(kept);
  return out;
}

}  // namespace ini

IniSettingsStore::IniSettingsStore(FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)) {}

Status IniSettingsStore::Refresh() {
  FileStamp now;
  Status status = files_.GetStamp(path_, now);
  if (status.kind() == StatusKind::kNotFound) {
    content_.clear();
    loaded_ = false;
    return {};
  }
  if (!status.ok() || (loaded_ && now == stamp_)) return status;
  loaded_ = false;
  status = ReadFile(files_, path_, content_);
  if (status.ok()) {
    stamp_ = now;
    loaded_ = true;
  }
  return status;
}

Status IniSettingsStore::Read(std::string_view section, std::string_view name, std::string& value) {
  Status status = Refresh();
  if (!status.ok()) return status;
  value = ini::FindValue(content_, section, name).value_or(std::string_view());
  return status;
}

Status IniSettingsStore::Write(std::string_view section, std::string_view name,
                               std::string_view value) {
  return WriteAll({{std::string(section), std::string(name), std::string(value)}});
}

Status IniSettingsStore::WriteAll(const std::vector<SettingValue>& values) {
  const bool allStorable = std::all_of(values.begin(), values.end(), [](const auto& value) {
    return ini::IsStorableName(value.name);
  });
  if (!allStorable) {
    return Status(StatusKind::kInputOutput, "a setting's name cannot hold these characters");
  }
  std::unique_ptr<FileLock> lock;
  Status status = files_.Lock(path_, lock);
  loaded_ = false;  // what is changed is the file as it is now, whatever its stamp says
  if (status.ok()) status = Refresh();
  if (!status.ok()) return status;
  std::string changed = content_;
  for (const SettingValue& value : values) {
    changed = ini::WithValue(changed, value.section, value.name, value.value);
  }
  return Change(changed);
}

Status IniSettingsStore::Delete(std::string_view section, std::string_view name) {
  Status status = Refresh();
  if (!status.ok() || !ini::FindValue(content_, section, name)) return status;
  std::unique_ptr<FileLock> lock;
  status = files_.Lock(path_, lock);
  loaded_ = false;
  if (status.ok()) status = Refresh();
  if (!status.ok()) return status;
  return Change(ini::WithoutValue(content_, section, name));
}

Status IniSettingsStore::Change(const std::string& changed) {
  loaded_ = false;
  return ReplaceFile(files_, path_, changed);
}

}  // namespace tidewarden
