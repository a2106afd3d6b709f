// What fills an entry besides typing: the values that are remembered, and the observances.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::EditDesk;
using ::testing::IsEmpty;

const std::string kFamily =
    "12.24,Eve,1,yearly\r\n"
    "12.25,Christmas Day,7,yearly\r\n";

// --- What is remembered.

TEST(FilledEntries, TheLastAdvanceAndKindAreRememberedAndUsedWhenWanted) {
  EditDesk desk;
  EditSession& session = desk.Open();
  desk.Enter(23, "5", "Talk", "14");
  session.Save();
  EXPECT_EQ(desk.settings.At("Options", "RememberLastAdvanceNoticeValue"), "14");
  EXPECT_EQ(desk.settings.At("Options", "RememberLastOccursIndex"), "23");
  session.Add();
  EXPECT_EQ(session.entry().txtAdvanceInput.text, "");
  EXPECT_EQ(session.entry().cmbOccursInput.index, 0);
  session.Cancel();
  desk.Set("RememberLastAdvanceNotice", "True");
  desk.Set("RememberLastOccurs", "True");
  session.Add();
  EXPECT_EQ(session.entry().txtAdvanceInput.text, "14");
  EXPECT_EQ(session.entry().cmbOccursInput.index, 23);
}

TEST(FilledEntries, RememberedValuesOutOfRangeAreNotUsed) {
  for (const std::string value : {"0", "366", "-1", "abc", "", "99999999999999999999"}) {
    EditDesk desk;
    desk.Set("RememberLastAdvanceNotice", "True");
    desk.Set("RememberLastAdvanceNoticeValue", value);
    desk.Set("RememberLastOccurs", "True");
    desk.Set("RememberLastOccursIndex", value == "366" ? "44" : value);
    EditSession& session = desk.Open();
    session.Add();
    EXPECT_EQ(session.entry().txtAdvanceInput.text, "") << value;
    EXPECT_EQ(session.entry().cmbOccursInput.index, 0) << value;
  }
  EditDesk last;
  last.Set("RememberLastAdvanceNotice", "True");
  last.Set("RememberLastAdvanceNoticeValue", "365");
  last.Set("RememberLastOccurs", "True");
  last.Set("RememberLastOccursIndex", "43");
  last.Open().Add();
  EXPECT_EQ(last.session().entry().txtAdvanceInput.text, "365");
  EXPECT_EQ(last.session().entry().cmbOccursInput.index, 43);
}

// --- Observances.

TEST(FilledEntries, AnObservanceFillsTheEntry) {
  EditDesk desk;
  EditSession& session = desk.Open();
  session.PopularPicked(0);
  EXPECT_EQ(session.entry().txtEventInput.text, "") << "without an entry nothing is filled";
  session.Add();
  session.OccursPicked(23);
  session.EveryMonthClicked(true);
  session.PopularPicked(27);
  EXPECT_EQ(session.entry().cmbOccursInput.index, 9);
  EXPECT_EQ(session.entry().txtDateInput.text, "09");
  EXPECT_EQ(session.entry().txtEventInput.text, "Labor Day");
  EXPECT_FALSE(session.entry().chkEveryMonth.checked);
  EXPECT_FALSE(session.entry().lblDateExample.visible);
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kAdvanceInput);
  session.PopularPicked(17);
  EXPECT_EQ(session.entry().cmbOccursInput.index, 37);
  EXPECT_EQ(session.entry().txtDateInput.text, "05");
  session.PopularPicked(40);
  EXPECT_EQ(session.entry().txtDateInput.text, "_estr");
  EXPECT_EQ(session.entry().txtEventInput.text, "Easter Sunday");
  session.PopularPicked(58);
  EXPECT_EQ(session.entry().txtEventInput.text, "Easter Sunday");
  session.Cancel();
  session.Add();
  EXPECT_EQ(session.entry().cmbPopular.index, -1);
  EXPECT_TRUE(session.entry().lblDateExample.visible);
}

TEST(FilledEntries, AnEditTakesNoObservance) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.Edit();
  const std::string title = session.entry().txtEventInput.text;
  session.PopularPicked(3);
  EXPECT_EQ(session.entry().txtEventInput.text, title);
}

TEST(FilledEntries, NothingIsTypedWithoutAnEntry) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.EventInputTyped("x");
  session.DateInputTyped("1.1");
  session.AdvanceInputTyped("3");
  session.EveryInputTyped("4");
  session.EveryMonthClicked(true);
  session.OccursPicked(8);
  session.DateInputLeft();
  EXPECT_EQ(session.DateInputKey("c"), KeyUse::kPassOn);
  session.Save();
  session.Delete();
  session.Cancel();
  EXPECT_EQ(session.entry().txtEventInput.text + session.entry().txtDateInput.text +
                session.entry().txtAdvanceInput.text + session.entry().txtEveryInput.text,
            "");
  EXPECT_EQ(desk.file(), kFamily);
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

}  // namespace
}  // namespace tidewarden
