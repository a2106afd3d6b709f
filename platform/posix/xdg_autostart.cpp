#include "platform/posix/xdg_autostart.h"

#include <algorithm>
#include <utility>

namespace tidewarden {
namespace desktop_entry {
namespace {

constexpr std::string_view kGroup = "[Desktop Entry]";
constexpr std::string_view kReserved = " \t\n\"'\\><~|&;$*?#()`";
constexpr std::string_view kEscapedInQuotes = "\"`$\\";

struct Line {
  std::size_t begin = 0;
  std::size_t end = 0;  // behind its line end
  std::string_view content;
};

Line LineAt(std::string_view text, std::size_t begin) {
  const std::size_t feed = text.find('\n', begin);
  const std::size_t end = feed == std::string_view::npos ? text.size() : feed + 1;
  std::string_view content = text.substr(begin, end - begin);
  while (content.ends_with('\n') || content.ends_with('\r')) content.remove_suffix(1);
  return {begin, end, content};
}

std::string_view WithoutBlanks(std::string_view text) {
  while (text.starts_with(' ') || text.starts_with('\t')) text.remove_prefix(1);
  while (text.ends_with(' ') || text.ends_with('\t')) text.remove_suffix(1);
  return text;
}

// Calls `visit` with every "key=value" line of the group for a key.
template <typename Visit>
void ForEachValue(std::string_view text, std::string_view key, Visit visit) {
  bool inside = false;
  for (std::size_t at = 0; at < text.size();) {
    const Line line = LineAt(text, at);
    at = line.end;
    if (line.content.starts_with('[')) inside = WithoutBlanks(line.content) == kGroup;
    const std::size_t equals = line.content.find('=');
    if (inside && equals != std::string_view::npos &&
        WithoutBlanks(line.content.substr(0, equals)) == key) {
      visit(line, WithoutBlanks(line.content.substr(equals + 1)));
    }
  }
}

// Undoes the escapes that every text value of an entry may have.
std::string Unescaped(std::string_view value) {
  std::string out;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      out.push_back(value[i]);
      continue;
    }
    constexpr std::string_view kLetters = "sntr\\";
    constexpr std::string_view kMeanings = " \n\t\r\\";
    const std::size_t which = kLetters.find(value[++i]);
    if (which == std::string_view::npos) out.push_back('\\');
    out.push_back(which == std::string_view::npos ? value[i] : kMeanings[which]);
  }
  return out;
}

std::string Escaped(std::string_view value) {
  std::string out;
  for (const char c : value) {
    switch (c) {
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\r':
        out += "\\r";
        break;
      default:
        out.push_back(c);
    }
  }
  return out;
}

}  // namespace

std::string ExecArgument(std::string_view argument) {
  const bool plain =
      !argument.empty() && argument.find_first_of(kReserved) == std::string_view::npos;
  std::string quoted = plain ? "" : "\"";
  for (const char c : argument) {
    if (!plain && kEscapedInQuotes.find(c) != std::string_view::npos) quoted.push_back('\\');
    quoted.push_back(c);
    // A single one would begin a field code.
    if (c == '%') quoted.push_back('%');
  }
  if (!plain) quoted.push_back('"');
  return Escaped(quoted);
}

std::vector<std::string> ArgumentsOfExec(std::string_view exec) {
  const std::string line = Unescaped(exec);
  std::vector<std::string> arguments;
  bool inQuotes = false;
  bool begun = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (!inQuotes && (c == ' ' || c == '\t')) {
      begun = false;
      continue;
    }
    if (!begun) arguments.emplace_back();
    begun = true;
    if (c == '"') {
      inQuotes = !inQuotes;
    } else if (inQuotes && c == '\\' && i + 1 < line.size()) {
      arguments.back().push_back(line[++i]);
    } else {
      arguments.back().push_back(c);
      if (c == '%' && i + 1 < line.size() && line[i + 1] == '%') ++i;
    }
  }
  return arguments;
}

std::string ValueOf(std::string_view text, std::string_view key) {
  std::string found;
  ForEachValue(text, key, [&found](const Line& /*line*/, std::string_view value) {
    if (found.empty()) found = value;
  });
  return found;
}

std::string WithoutKey(std::string_view text, std::string_view key) {
  std::string out;
  std::size_t kept = 0;
  ForEachValue(text, key, [&](const Line& line, std::string_view /*value*/) {
    out += text.substr(kept, line.begin - kept);
    kept = line.end;
  });
  out += text.substr(kept);
  return out;
}

std::string WithKey(std::string_view text, std::string_view key, std::string_view value) {
  std::string out = WithoutKey(text, key);
  const std::string added = std::string(key) + "=" + std::string(value) + "\n";
  for (std::size_t at = 0; at < out.size();) {
    const Line line = LineAt(out, at);
    at = line.end;
    if (WithoutBlanks(line.content) != kGroup) continue;
    // The last line of the file may lack its end.
    out.insert(at, out[at - 1] == '\n' ? added : "\n" + added);
    return out;
  }
  if (!out.empty() && !out.ends_with('\n')) out.push_back('\n');
  return out + std::string(kGroup) + "\n" + added;
}

}  // namespace desktop_entry

namespace {

using desktop_entry::ValueOf;
using desktop_entry::WithKey;
using desktop_entry::WithoutKey;

constexpr std::string_view kHidden = "Hidden";
constexpr std::string_view kEnabled = "X-GNOME-Autostart-enabled";

constexpr std::string_view kNewEntry =
    "[Desktop Entry]\n"
    "Type=Application\n"
    "Version=1.4\n"
    "Name=Tidewarden\n"
    "Comment=Shows which of your dates are coming up\n"
    "Icon=tidewarden\n"
    "Terminal=false\n";

std::string_view NameOf(std::string_view path) {
  return path.substr(path.rfind('/') + 1);
}

bool IsSwitchedOff(const std::string& entry) {
  return ValueOf(entry, kHidden) == "true" || ValueOf(entry, kEnabled) == "false";
}

}  // namespace

XdgAutostart::XdgAutostart(FileSystem& files, const std::string& configFolder, std::string program)
    : files_(files),
      path_(configFolder + "/autostart/tidewarden.desktop"),
      program_(std::move(program)) {}

// Also behind another command, such as "env", that starts it.
bool XdgAutostart::StartsProgram(const std::string& entry) const {
  const auto arguments = desktop_entry::ArgumentsOfExec(ValueOf(entry, "Exec"));
  return std::any_of(arguments.begin(), arguments.end(), [this](const std::string& argument) {
    return argument == program_ || argument == NameOf(program_);
  });
}

bool XdgAutostart::IsOn() {
  std::string entry;
  return ReadFile(files_, path_, entry).ok() && !IsSwitchedOff(entry) && StartsProgram(entry);
}

std::string XdgAutostart::SwitchedOn(std::string entry) const {
  if (ValueOf(entry, kHidden) == "true") entry = WithoutKey(entry, kHidden);
  if (ValueOf(entry, kEnabled) == "false") entry = WithoutKey(entry, kEnabled);
  if (!StartsProgram(entry)) {
    entry = WithKey(entry, "Exec", desktop_entry::ExecArgument(program_));
    // It spoke of the program that the entry started before.
    entry = WithoutKey(entry, "TryExec");
  }
  if (ValueOf(entry, "Type").empty()) entry = WithKey(entry, "Type", "Application");
  if (ValueOf(entry, "Name").empty()) entry = WithKey(entry, "Name", "Tidewarden");
  return entry;
}

Status XdgAutostart::Set(bool on) {
  if (IsOn() == on) return {};
  if (!on) return files_.Remove(path_);
  std::string entry;
  Status status = ReadFile(files_, path_, entry);
  const bool isNew = status.kind() == StatusKind::kNotFound;
  if (isNew) {
    entry = kNewEntry;
    status = files_.CreateEmpty(path_);  // with its folder
  }
  if (!status.ok()) return status;
  status = ReplaceFile(files_, path_, SwitchedOn(std::move(entry)));
  // An empty entry would be noise for whoever reads the folder.
  if (!status.ok() && isNew) static_cast<void>(files_.Remove(path_).ok());
  return status;
}

}  // namespace tidewarden
