#include "core/text_encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dates/text.h"

namespace tidewarden {
namespace {

// Unicode's table of the code page, CP1252.TXT: what the defined bytes from 0x80 to 0x9F stand
// for, in order, and the five bytes that are left out of it.
constexpr std::string_view kHighCharacters = "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ";
constexpr std::string_view kHoles = "\x81\x8D\x8F\x90\x9D";

std::string Utf8(char32_t character) {
  std::string out;
  AppendCharacter(out, character);
  return out;
}

TEST(Windows1252, AsciiAndLatin1StandForThemselves) {
  for (int byte = 0; byte < 256; ++byte) {
    if (byte >= 0x80 && byte < 0xA0) continue;
    const std::string one(1, static_cast<char>(byte));
    EXPECT_EQ(DecodeWindows1252(one), Utf8(static_cast<char32_t>(byte))) << byte;
  }
}

TEST(Windows1252, TheBytesBetweenFollowTheCodePage) {
  std::string bytes;
  for (int byte = 0x80; byte < 0xA0; ++byte) {
    if (kHoles.find(static_cast<char>(byte)) == std::string_view::npos) {
      bytes.push_back(static_cast<char>(byte));
    }
  }
  ASSERT_EQ(bytes.size(), 27);
  EXPECT_EQ(DecodeWindows1252(bytes), kHighCharacters);
}

TEST(Windows1252, AHoleBecomesTheControlCharacterOfTheSameNumber) {
  for (const char hole : kHoles) {
    EXPECT_EQ(DecodeWindows1252(std::string(1, hole)), Utf8(static_cast<unsigned char>(hole)));
  }
}

TEST(Windows1252, EveryByteSurvivesReadingAndWriting) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  const std::string text = DecodeWindows1252(all);
  EXPECT_TRUE(IsValidUtf8(text));
  EXPECT_EQ(CountCharacters(text), 256);
  EXPECT_EQ(EncodeWindows1252(text), all);
}

TEST(Windows1252, ExactlyTheCharactersOfTheCodePageCanBeWritten) {
  int writable = 0;
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    const auto bytes = EncodeWindows1252(Utf8(c));
    if (!bytes) continue;
    ++writable;
    ASSERT_EQ(bytes->size(), 1);
    EXPECT_EQ(DecodeWindows1252(*bytes), Utf8(c));
  }
  EXPECT_EQ(writable, 256);
}

TEST(Windows1252, OneCharacterWithoutAPlaceRefusesTheWholeText) {
  for (const std::string text : {"Ł", "Caf\xC3\xA9 Ł", "\xC2\x80", "日本", "a\xFF", "\xC3"}) {
    EXPECT_EQ(EncodeWindows1252(text), std::nullopt) << text;
  }
  EXPECT_EQ(EncodeWindows1252("Café €"), "Caf\xE9 \x80");
  EXPECT_EQ(EncodeWindows1252(""), "");
}

struct EncodingCase {
  std::string bytes;
  TextEncoding encoding;
};

TEST(Encoding, IsUtf8ExactlyWhenTheBytesAreValidUtf8) {
  constexpr auto kUtf8 = TextEncoding::kUtf8;
  constexpr auto k1252 = TextEncoding::kWindows1252;
  const std::vector<EncodingCase> cases{
      {"", kUtf8},
      {"12.25,Christmas,14,yearly\r\n", kUtf8},
      {"No\xC3\xABl", kUtf8},
      {"\xEF\xBB\xBFNo\xC3\xABl", kUtf8},
      {"\xEF\xBB\xBF", kUtf8},
      {"\xF0\x9F\x8E\x84", kUtf8},
      {std::string("a\0b", 3), kUtf8},
      {"No\xEBl", k1252},
      {"\xEF\xBB\xBFNo\xEBl", k1252},
      {"No\xC3", k1252},  // cut off
      {"\xC3\xC3\xAB", k1252},
      {"\xABl", k1252},     // a continuation alone
      {"\xC0\xAF", k1252},  // overlong
      {"\xE0\x80\xAF", k1252},
      {"\xED\xA0\x80", k1252},      // a surrogate
      {"\xF4\x90\x80\x80", k1252},  // above the last character
      {"\xF8\x88\x80\x80\x80", k1252},
      {"\xFF", k1252},
      {std::string(1000, 'a') + "\x80", k1252},
      {"\x80" + std::string(1000, 'a'), k1252},
  };
  for (const EncodingCase& c : cases) {
    EXPECT_EQ(DetectEncoding(c.bytes), c.encoding) << c.bytes;
  }
}

TEST(Encoding, Utf16IsRecognizedByItsMarkAndANul) {
  using namespace std::string_literals;
  EXPECT_TRUE(
      LooksLikeUtf16("\xFF\xFE"
                     "1\0002\000"s));
  EXPECT_TRUE(LooksLikeUtf16("\xFE\xFF\0001\0002"s));
  EXPECT_TRUE(LooksLikeUtf16("\xFF\xFE\r\0\n\0"s));
  EXPECT_FALSE(LooksLikeUtf16(""));
  EXPECT_FALSE(LooksLikeUtf16("\xFF\xFE"));
  EXPECT_FALSE(LooksLikeUtf16("\xFF\xFE is also Windows-1252"));
  // Without a mark by the NULs between the first letters.
  EXPECT_TRUE(LooksLikeUtf16("1\0002\000"s));
  EXPECT_TRUE(LooksLikeUtf16("\0001\0002"s));
  EXPECT_FALSE(LooksLikeUtf16("1\0002"s));
  EXPECT_FALSE(LooksLikeUtf16("1\000\n\000"s));
  EXPECT_FALSE(LooksLikeUtf16("\000\000\0001"s));
  EXPECT_FALSE(LooksLikeUtf16("12\000\000"s));
  EXPECT_FALSE(
      LooksLikeUtf16("\xEF\xBB\xBF"
                     "1\000"s));
}

}  // namespace
}  // namespace tidewarden
