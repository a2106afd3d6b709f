// A save that copies the old bytes around its change writes what one writes that makes every line
// anew, and shows what another opening of the editor shows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/text_encoding.h"
#include "editor/event_list.h"
#include "editor/events_writer.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::EditDesk;
using test::MonthFirst;
using ::testing::ElementsAreArray;

const CivilDate kToday = MakeDate(2014, 12, 22);

EventList Read(std::string_view content, const RegionalDateFormat& format) {
  EventList list;
  EXPECT_TRUE(ReadEventList(content, format, kToday, TodayCase::kCapitals, {}, list).ok());
  return list;
}

// Files as the editor writes them, and files with every departure from that.
class Files {
 public:
  explicit Files(unsigned seed) : random_(seed) {}

  int Below(std::size_t limit) { return static_cast<int>(random_() % limit); }

  const std::string& OneOf(const std::vector<std::string>& texts) {
    return texts[static_cast<std::size_t>(Below(texts.size()))];
  }

  std::string Line(bool odd) {
    static const std::vector<std::string> dates{"01.26", "12.22", "12.25", "02.29", "xx.15",
                                                "05.xx", "_estr", "e+039", "12.25", "e-046"};
    static const std::vector<std::string> oddDates{"12/25", "12-25", "1.25", "_ESTR", "é.15", ""};
    static const std::vector<std::string> titles{"Bob",
                                                 "bob",
                                                 "Café",
                                                 "日本 😀",
                                                 "9:30 am",
                                                 "<TODAY>",
                                                 "X<TODAY>…",
                                                 "<1788> Founded",
                                                 std::string(38, 'a'),
                                                 ""};
    static const std::vector<std::string> oddTitles{" Bob", "Bob ", std::string(39, 'a'), "\t",
                                                    std::string(38, 'a') + "  "};
    static const std::vector<std::string> advances{"0", "1", "7", "30", "365"};
    static const std::vector<std::string> oddAdvances{"07", " 7", "7.4", "366", "", "+7"};
    static const std::vector<std::string> occurs{"yearly",  "monthly", "quarter", "one2014",
                                                 "20~2014", "05-2014", "tdo2014", "2nd sun",
                                                 "las mon", "las day"};
    static const std::vector<std::string> oddOccurs{
        "Yearly", " yearly", "yearly ", "dp-1788", "dp-2999", "df-2020", "dp-0",        "df-30",
        "dp-01",  "df-",     "1-2014",  "7~2014",  "one14",   "tdo1",    "1st xyz mon", "yearly*"};
    const auto pick = [&](const auto& usual, const auto& rare) -> const std::string& {
      return odd && Below(8) == 0 ? OneOf(rare) : OneOf(usual);
    };
    return pick(dates, oddDates) + "," + pick(titles, oddTitles) + "," +
           pick(advances, oddAdvances) + "," + pick(occurs, oddOccurs);
  }

  std::string File(const RegionalDateFormat& format) {
    const bool odd = Below(2) == 0;
    std::string content;
    for (int i = Below(8); i > 0; --i) {
      content += Line(odd);
      content += odd && Below(12) == 0 ? OneOf({"\n", "\r", "\r\n\r\n", "\n\r\n", ""}) : "\r\n";
    }
    if (Below(3) != 0) {
      // In the order of the rows, as after a save.
      content = EventsFileContent({Read(content, format).rows, {}}, format, content);
    }
    if (odd && Below(4) == 0) {
      const auto western = EncodeWindows1252(content);
      if (western) content = *western;
    }
    return Below(4) == 0 ? std::string(kByteOrderMark) + content : content;
  }

 private:
  std::mt19937 random_;
};

TEST(SplicedContent, IsWhatMakingEveryLineAnewGives) {
  Files files(20'141'222);
  int written = 0;
  int others = 0;
  int changes = 0;
  for (int i = 0; i < 4000; ++i) {
    for (const auto& layout : AllLayouts()) {
      const std::string content = files.File(layout.format);
      const EventList list = Read(content, layout.format);
      SCOPED_TRACE(layout.name + "\n" + content);
      ++(list.asWritten ? written : others);
      if (!list.asWritten) continue;
      const std::string bare =
          content.substr(content.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
      const std::string anew = EventsFileContent({list.rows, {}}, layout.format, content);
      ASSERT_EQ(anew, bare.empty() ? bare : content);
      const auto event = ParseEventLine("12.24,Zoë,3,yearly", layout.format, 2014);
      ASSERT_TRUE(event);
      const EventRow row = MakeRow(*event, 0, layout.format);
      for (std::size_t at = 0; at <= list.rows.size(); ++at) {
        for (const bool adds : {false, true}) {
          RowsToWrite change{list.rows, {}};
          if (at < list.rows.size()) change.removed = at;
          if (adds) {
            change.added = &row;
            change.place = PlaceFor(list.rows, row);
          }
          if (change.removed && list.rows[at].isToday) continue;
          const auto spliced = SplicedContent(change, layout.format, content);
          ASSERT_TRUE(spliced) << at;
          ASSERT_EQ(*spliced, EventsFileContent(change, layout.format, content)) << at;
          ++changes;
        }
      }
    }
  }
  EXPECT_GT(written, 10'000);
  EXPECT_GT(others, 2000);
  std::cout << written << " files as written, " << others << " others, " << changes << " changes\n";
}

TEST(SplicedContent, IsNotMadeOfOtherLinesThanThoseOfTheRows) {
  const std::string content = "01.01,A,1,yearly\r\n02.02,B,1,yearly\r\n03.03,C,1,yearly\r\n";
  const RegionalDateFormat format = MonthFirst();
  const EventList list = Read(content, format);
  ASSERT_TRUE(list.asWritten);
  const EventRow row = Read("02.03,New,1,yearly\r\n", format).rows[0];
  const RowsToWrite removes{list.rows, 1};
  const RowsToWrite adds{list.rows, {}, &row, 2};
  const RowsToWrite addsLast{list.rows, {}, &row, 4};
  EXPECT_EQ(SplicedContent(removes, format, content), "01.01,A,1,yearly\r\n03.03,C,1,yearly\r\n");
  EXPECT_EQ(SplicedContent(adds, format, content),
            "01.01,A,1,yearly\r\n02.02,B,1,yearly\r\n02.03,New,1,yearly\r\n03.03,C,1,yearly\r\n");
  EXPECT_EQ(SplicedContent(addsLast, format, content), content + "02.03,New,1,yearly\r\n");
  for (const std::string& other :
       std::vector<std::string>{"", "01.01,A,1,yearly\r\n", "\r\n" + content,
                                "01.01,A,1,yearly\r\n02.02,X,1,yearly\r\n03.03,X,1,yearly\r\n",
                                "01.01,A,1,yearly\n02.02,B,1,yearly\n03.03,C,1,yearly\n"}) {
    EXPECT_EQ(SplicedContent(removes, format, other), std::nullopt) << other;
    EXPECT_EQ(SplicedContent(adds, format, other), std::nullopt) << other;
  }
  EXPECT_EQ(SplicedContent(addsLast, format, "01.01,A,1,yearly"), std::nullopt);
}

TEST(SplicedContent, FilesThatTheEditorWritesAreKnown) {
  for (const std::string end : {"\r\n", "\n"}) {
    for (const std::string second : {"02.02,B,1,yearly", "01.01,B,1,yearly", "12.31,B,1,yearly*",
                                     "12.31,B,01,yearly", "12.31, B,1,yearly", "not an event"}) {
      const std::string content = "01.02,A,1,yearly" + end + second + end;
      const bool known = end == "\r\n" && second == "02.02,B,1,yearly";
      EXPECT_EQ(Read(content, MonthFirst()).asWritten, known) << content;
    }
  }
  EXPECT_TRUE(Read("", MonthFirst()).asWritten);
  EXPECT_TRUE(Read("01.02,Caf\xC3\xA9,1,yearly\r\n", MonthFirst()).asWritten);
  EXPECT_FALSE(Read("01.02,Caf\xE9,1,yearly\r\n", MonthFirst()).asWritten);
  EXPECT_FALSE(Read("01.02,A,1,yearly\r\n02.02,B,1,yearly", MonthFirst()).asWritten);
}

// The marks of hidden events go with every save; the engine could keep them.
TEST(HiddenMarks, AreDroppedOrKept) {
  const std::string content = "01.01,A,1,yearly*\r\n02.02,B,1,yearly\r\n03.03,C,0,dp-1999*\r\n";
  const std::string without = "01.01,A,1,yearly\r\n02.02,B,1,yearly\r\n03.03,C,0,dp-1999\r\n";
  const RegionalDateFormat format = MonthFirst();
  EXPECT_EQ(kHiddenMarks, HiddenMarks::kDropped);
  for (const HiddenMarks marks : {HiddenMarks::kDropped, HiddenMarks::kKept}) {
    const bool keeps = marks == HiddenMarks::kKept;
    EventList list;
    ASSERT_TRUE(ReadEventList(content, format, kToday, {}, {}, list, marks).ok());
    EXPECT_EQ(list.rescue, keeps ? RescueNeed::kNone : RescueNeed::kDropsSomething);
    EXPECT_EQ(list.asWritten, keeps);
    RowsToWrite rows{list.rows, {}};
    rows.marks = marks;
    EXPECT_EQ(EventsFileContent(rows, format, content), keeps ? content : without);
    rows.removed = 1;
    const auto spliced = SplicedContent(rows, format, content);
    if (keeps) {
      EXPECT_EQ(spliced, "01.01,A,1,yearly*\r\n03.03,C,0,dp-1999*\r\n");
    }
    rows.removed = 0;
    EXPECT_EQ(SplicedContent(rows, format, content).has_value(), keeps);
  }
}

// One deed after the other in one editor, each compared with the whole file made anew and with an
// editor that has just been opened.
TEST(SplicedContent, AnEditorThatStaysOpenShowsWhatAFreshOneShows) {
  const std::vector<std::string> starts{
      "", "01.26,<1788> Australia Day,0,dp-1788\r\n_estr,Easter Sunday,14,yearly\r\n",
      "\xEF\xBB\xBF"
      "12.25,Caf\xC3\xA9,7,yearly\r\n",
      "12.25,Caf\xE9,7,yearly\r\n",
      "12.31,Unsorted,7,yearly\n01.01, Blank ,7,yearly\nnot an event\n06.01,Hidden,1,yearly*\n"};
  for (const auto& layout : AllLayouts()) {
    for (const std::string& start : starts) {
      Files random(7);
      EditDesk desk(start);
      desk.format = layout.format;
      desk.messages.answer = MessageAnswer::kYes;
      EditSession& session = desk.Open();
      for (int i = 0; i < 60; ++i) {
        const int row = random.Below(session.List1().size() + 1);
        // A day goes by, now and then.
        if (i % 20 == 19) desk.clock.now.date = MakeDate(2014, 12, 23);
        switch (random.Below(3)) {
          case 0:
            session.RowSelected(row);
            session.PopupDelete();
            break;
          case 1:
            session.RowSelected(row);
            session.Edit();
            if (session.isEntryUnderWay())
              session.EventInputTyped(random.OneOf({"Ann", "Zoë", "é"}));
            session.Save();
            break;
          default:
            desk.Enter(0, random.OneOf({"1.1", "6.6", "12.12"}),
                       random.OneOf({"Mid", "日本", "ann"}));
            session.Save();
        }
        ASSERT_FALSE(session.isEntryUnderWay());
        SCOPED_TRACE(layout.name + " " + std::to_string(i) + "\n" + desk.file());
        ASSERT_EQ(EventsFileContent({session.List1(), {}}, layout.format, desk.file()),
                  desk.file() == kByteOrderMark ? "" : desk.file());
        EditDesk fresh(desk.file());
        fresh.format = layout.format;
        fresh.clock.now = desk.clock.now;
        fresh.Open();
        ASSERT_THAT(desk.List(), ElementsAreArray(fresh.List()));
        ASSERT_THAT(session.EditorLineMap(), ElementsAreArray(fresh.session().EditorLineMap()));
        for (std::size_t at = 0; at < session.List1().size(); ++at) {
          ASSERT_EQ(session.List1()[at].line, fresh.session().List1()[at].line);
          ASSERT_EQ(session.List1()[at].key, fresh.session().List1()[at].key);
        }
      }
    }
  }
}

}  // namespace
}  // namespace tidewarden
