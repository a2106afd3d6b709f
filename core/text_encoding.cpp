#include "core/text_encoding.h"

#include <algorithm>

#include "dates/text.h"

namespace tidewarden {
namespace {

// Bytes 0x80 to 0x9F, from the index "windows-1252" of the WHATWG Encoding Standard.
constexpr char32_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// True for a beginning like that of ASCII text in UTF-16 without a mark, in either byte order.
bool AlternatesWithNul(std::string_view bytes) {
  constexpr std::size_t kBytes = 4;
  if (bytes.size() < kBytes) return false;
  const std::size_t first = bytes[0] == '\0' ? 1 : 0;
  for (std::size_t i = 0; i < kBytes; ++i) {
    const bool isText = bytes[i] != '\0' && bytes[i] != '\r' && bytes[i] != '\n';
    if (isText != (i % 2 == first)) return false;
    if (!isText && bytes[i] != '\0') return false;
  }
  return true;
}

}  // namespace

TextEncoding DetectEncoding(std::string_view bytes) {
  return IsValidUtf8(bytes) ? TextEncoding::kUtf8 : TextEncoding::kWindows1252;
}

bool StartsAsUtf16(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") || AlternatesWithNul(bytes);
}

bool LooksLikeUtf16(std::string_view bytes) {
  return StartsAsUtf16(bytes) && bytes.find('\0') != std::string_view::npos;
}

std::string DecodeWindows1252(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendCharacter(out, byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : byte);
  }
  return out;
}

std::optional<std::string> EncodeWindows1252(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
      out.push_back(static_cast<char>(character));
      continue;
    }
    const auto* const place =
        std::find(std::begin(kHighControls), std::end(kHighControls), character);
    if (place == std::end(kHighControls)) return std::nullopt;
    out.push_back(static_cast<char>(0x80 + (place - std::begin(kHighControls))));
  }
  return out;
}

}  // namespace tidewarden
