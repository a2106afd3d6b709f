#include "dates/time_of_day.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/dates/data_rows.h"

namespace tidewarden::test {
namespace {

struct TimeCase {
  const char* title;
  int time;
};

const TimeCase kTimes[] = {
    {"Dentist 9:15 am", 915},
    {"Meeting 12:05 am", 5},
    {"Call at 1:30pm", 1330},
    {"Lunch 12:30 pm", 1230},
    {"0:00", 0},
    {"00:00", 0},
    {"9:05", 905},
    {"09:05", 905},
    {"23:59", 2359},
    {"9:15am", 915},
    {"9:15 AM", 915},
    {"9:15PM", 2115},
    {"9:15 pM", 2115},
    {"11:59 pm", 2359},
    {"12:00 pm", 1200},
    {"12:00am", 0},
    {"0:30pm", 1230},
    {"0:30 am", 30},
    {"13:30pm", 1330},
    {"13:30 am", 1330},
    {"9:15 amazing", 915},
    {"9:15pmx", 2115},
    {"9:15 a m", 915},
    {"9:15  pm", 915},  // two blanks
    {"9:15p", 915},
    {"9:15 p", 915},
    {"9:155", 915},
    {"9:15:30 pm", 915},
    {"at9:15", 915},
    {"-9:15", 915},
    {"caf\xC3\xA9 9:15 pm", 2115},
    {"\xC3\xA9"
     "9:15",
     915},
    {"123:45", 2345},  // at most two digits before the colon count
    {"1234:45", kNoTimeOfDay},
    {"111:15", 1115},
    // Hour 24 and minute 60 are let through.
    {"24:00", 2400},
    {"24:59", 2459},
    {"24:60", kNoTimeOfDay},
    {"23:60", 2360},
    {"0:60", 60},
    {"11:60 pm", 2360},
    {"25:00", kNoTimeOfDay},
    {"23:61", kNoTimeOfDay},
    {"99:99", kNoTimeOfDay},
    // No time.
    {"", kNoTimeOfDay},
    {"Dentist", kNoTimeOfDay},
    {"Ratio 1:x", kNoTimeOfDay},
    {"Ratio 1:1x", kNoTimeOfDay},
    {"Ratio 1:x1", kNoTimeOfDay},
    {"Ratio x:11", kNoTimeOfDay},
    {"12:3", kNoTimeOfDay},
    {"12:", kNoTimeOfDay},
    {":30", kNoTimeOfDay},
    {" :30", kNoTimeOfDay},
    {":", kNoTimeOfDay},
    {"9 :15", kNoTimeOfDay},
    {"9: 15", kNoTimeOfDay},
    {"9.15 am", kNoTimeOfDay},
    {"1:\xC3\xA9", kNoTimeOfDay},
    {"\xC3\xA9:15", kNoTimeOfDay},
    {"\xD9\xA1:15", kNoTimeOfDay},  // a digit of another script
    // Only the first colon is looked at.
    {"Note: call 9:15", kNoTimeOfDay},
    {"9:15 or 10:30 pm", 915},
};

TEST(ConvertToFourDigitTimeTest, FindsTheTimeAtTheFirstColon) {
  for (const TimeCase& c : kTimes) EXPECT_EQ(ConvertToFourDigitTime(c.title), c.time) << c.title;
}

bool Digit(const std::string& title, int position) {
  return position >= 1 && position <= static_cast<int>(title.size()) &&
         title[static_cast<std::size_t>(position - 1)] >= '0' &&
         title[static_cast<std::size_t>(position - 1)] <= '9';
}

std::string LowerPiece(const std::string& title, int position, int length) {
  const auto start = static_cast<std::size_t>(position - 1);
  std::string piece =
      start < title.size() ? title.substr(start, static_cast<std::size_t>(length)) : std::string();
  for (char& c : piece) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return piece;
}

// The steps one by one, on pieces of the text and with real numbers.
int TimeByPieces(const std::string& title) {
  const int p = static_cast<int>(title.find(':')) + 1;
  if (p <= 1 || static_cast<int>(title.size()) - p < 2) return 2460;
  if (!Digit(title, p + 1) || !Digit(title, p + 2) || !Digit(title, p - 1)) return 2460;
  const bool twoDigits = p >= 3 && Digit(title, p - 2);
  const bool morning = LowerPiece(title, p + 3, 2) == "am" || LowerPiece(title, p + 3, 3) == " am";
  const bool afternoon =
      !morning && (LowerPiece(title, p + 3, 2) == "pm" || LowerPiece(title, p + 3, 3) == " pm");
  std::string piece = LowerPiece(title, twoDigits ? p - 2 : p - 1, twoDigits ? 5 : 4);
  piece.erase(piece.find(':'), 1);
  const int n = std::stoi(piece);
  int hours = n / 100;
  if (morning && hours == 12) {
    hours = 0;
  } else if (afternoon && hours < 12) {
    hours += 12;
  }
  const int minutes = n - 100 * (n / 100);
  return hours < 25 && minutes < 61 ? hours * 100 + minutes : 2460;
}

TEST(ConvertToFourDigitTimeTest, ReadsEveryHourAndMinuteWithEveryEnding) {
  int seen = 0;
  for (const char* before : {"", "x", " ", "1", "2x", "Call at "}) {
    for (const char* after : {"", " ", "am", " am", "pm", " pm", "AM", " Pm", "a", " m", "  am"}) {
      for (int hour = 0; hour < 100; ++hour) {
        for (const int minute : {0, 1, 9, 10, 59, 60, 61, 99}) {
          for (const int width : {1, 2}) {
            const std::string title =
                before + Padded(hour, width) + ":" + Padded(minute, 2) + after;
            ASSERT_EQ(ConvertToFourDigitTime(title), TimeByPieces(title)) << title;
            ++seen;
          }
        }
      }
    }
  }
  EXPECT_EQ(seen, 6 * 11 * 100 * 8 * 2);
}

}  // namespace
}  // namespace tidewarden::test
