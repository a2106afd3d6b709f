#include "core/line_splitter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tidewarden {
namespace {

using Lines = std::vector<std::string>;

// The lines of a text that arrives in pieces of a given size; 0 for all at once.
Lines Cut(std::string_view text, std::size_t piece) {
  Lines lines;
  const auto keep = [&](std::string_view line) { lines.emplace_back(line); };
  LineSplitter splitter;
  if (piece == 0) {
    splitter.Take(text, keep);
  } else {
    for (std::size_t at = 0; at < text.size(); at += piece) {
      splitter.Take(text.substr(at, piece), keep);
    }
  }
  splitter.Finish(keep);
  return lines;
}

// One byte after the other.
Lines NaiveLines(std::string_view text) {
  Lines lines;
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      line.push_back(text[i]);
      continue;
    }
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    lines.push_back(line);
    line.clear();
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

struct LineCase {
  std::string text;
  Lines lines;
};

TEST(LineSplitter, EndsALineAtEachOfTheThreeEnds) {
  const std::vector<LineCase> cases{
      {"", {}},
      {"a", {"a"}},
      {"a\n", {"a"}},
      {"a\r", {"a"}},
      {"a\r\n", {"a"}},
      {"a\nb", {"a", "b"}},
      {"a\rb", {"a", "b"}},
      {"a\r\nb", {"a", "b"}},
      {"\n", {""}},
      {"\r\n", {""}},
      {"\r", {""}},
      {"\n\n", {"", ""}},
      {"\r\r", {"", ""}},
      {"\n\r", {"", ""}},
      {"\r\n\r\n", {"", ""}},
      {"\r\r\n", {"", ""}},
      {"a\r\n\nb\r\rc\n\r\nd", {"a", "", "b", "", "c", "", "d"}},
      {"a\r\nb\nc\rd\r\n", {"a", "b", "c", "d"}},
      {"a\xE2\x80\xA8"
       "b\x0B"
       "c\x0C",
       {"a\xE2\x80\xA8"
        "b\x0B"
        "c\x0C"}},
      {std::string("a\0b\n", 4), {std::string("a\0b", 3)}},
  };
  for (const LineCase& c : cases) {
    for (std::size_t piece = 0; piece <= c.text.size(); ++piece) {
      EXPECT_EQ(Cut(c.text, piece), c.lines)
          << testing::PrintToString(c.text) << " in pieces of " << piece;
    }
  }
}

TEST(LineSplitter, EveryShortTextInPiecesOfEverySize) {
  const std::string letters = "a\r\n";
  for (int length = 0; length <= 7; ++length) {
    std::vector<std::size_t> digits(static_cast<std::size_t>(length), 0);
    while (true) {
      std::string text;
      for (const std::size_t digit : digits) text.push_back(letters[digit]);
      const Lines expected = NaiveLines(text);
      for (std::size_t piece = 0; piece <= text.size(); ++piece) {
        ASSERT_EQ(Cut(text, piece), expected) << testing::PrintToString(text) << " by " << piece;
      }
      std::size_t i = 0;
      while (i < digits.size() && ++digits[i] == letters.size()) digits[i++] = 0;
      if (i == digits.size()) break;
    }
  }
}

TEST(LineSplitter, AnEmptyPieceChangesNothing) {
  Lines lines;
  const auto keep = [&](std::string_view line) { lines.emplace_back(line); };
  LineSplitter splitter;
  for (const std::string_view piece : {"", "a", "", "\r", "", "\n", "", "b", ""}) {
    splitter.Take(piece, keep);
  }
  splitter.Finish(keep);
  EXPECT_EQ(lines, (Lines{"a", "b"}));
}

// Searching each line's end through all that follows would take minutes here.
TEST(LineSplitter, WalksAVeryLongFileOfEachKindOfEnd) {
  constexpr std::size_t kLines = 1'000'000;
  for (const std::string end : {"\r", "\n", "\r\n"}) {
    std::string text;
    for (std::size_t i = 0; i < kLines; ++i) text += "12.25,Christmas,14,yearly" + end;
    for (const std::size_t piece : {std::size_t{0}, std::size_t{65536}}) {
      std::size_t count = 0;
      std::size_t odd = 0;
      const auto look = [&](std::string_view line) {
        ++count;
        if (line != "12.25,Christmas,14,yearly") ++odd;
      };
      LineSplitter splitter;
      const std::size_t step = piece == 0 ? text.size() : piece;
      for (std::size_t at = 0; at < text.size(); at += step) {
        splitter.Take(std::string_view(text).substr(at, step), look);
      }
      splitter.Finish(look);
      EXPECT_EQ(count, kLines);
      EXPECT_EQ(odd, 0);
    }
  }
}

TEST(LineSplitter, JoinsALineThatIsLongerThanManyPieces) {
  const std::string line(100'000, 'x');
  EXPECT_EQ(Cut(line + "\r\n" + line, 7), (Lines{line, line}));
}

}  // namespace
}  // namespace tidewarden
