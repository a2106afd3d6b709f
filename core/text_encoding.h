// The encoding of an events file: UTF-8 when the bytes are valid UTF-8, else Windows-1252.
//
// Reading never loses a byte: the five bytes that Windows-1252 leaves undefined stand for the
// control characters of the same number, and writing gives the same bytes again.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tidewarden {

enum class TextEncoding { kUtf8, kWindows1252 };

inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The encoding of a file's bytes. A byte-order mark is valid UTF-8 like any other character, and
// does not make UTF-8 of a file whose other bytes are not.
[[nodiscard]] TextEncoding DetectEncoding(std::string_view bytes);

// True for bytes that begin with a UTF-16 byte-order mark, or with two characters of ASCII text in
// UTF-16 that are no line end. The first line of a file gives the same answer as the whole.
[[nodiscard]] bool StartsAsUtf16(std::string_view bytes);

// True for bytes that begin so and hold a NUL: text that cannot be read as either encoding.
[[nodiscard]] bool LooksLikeUtf16(std::string_view bytes);

// Bytes of Windows-1252 as UTF-8.
[[nodiscard]] std::string DecodeWindows1252(std::string_view bytes);

// UTF-8 text as bytes of Windows-1252; nothing when a character has no place there.
[[nodiscard]] std::optional<std::string> EncodeWindows1252(std::string_view text);

}  // namespace tidewarden
