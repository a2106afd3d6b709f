#include "core/skin.h"

#include "core/settings_keys.h"
#include "core/text_encoding.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kSkinFile = "winaqua.skn";
constexpr std::size_t kLargestSkin = std::size_t{1024} * 1024;

}  // namespace

std::string ReadSkin(SettingsStore& settings, FileSystem& files, const ProgramFolders& folders) {
  using namespace modGetSetSaveSet;
  if (!isNotFalse(Get(settings, settings::kUseSkin))) return {};
  std::string text;
  const Status status = files.Read(JoinPath(folders.program, kSkinFile, folders.style),
                                   [&text](std::string_view piece) {
                                     text += piece;
                                     return text.size() <= kLargestSkin;
                                   });
  const bool usable = status.ok() && text.size() <= kLargestSkin && IsValidUtf8(text) &&
                      text.find('\0') == std::string::npos;
  if (!usable) return {};
  // Some editors leave a mark, which would spoil the first rule.
  return text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
}

}  // namespace tidewarden
