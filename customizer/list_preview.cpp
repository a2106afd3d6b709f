#include "customizer/list_preview.h"

#include "core/settings_keys.h"
#include "dates/date_text.h"
#include "dates/regional_text.h"
#include "dates/text.h"
#include "reminder/daily_quote.h"
#include "reminder/list_builder.h"

namespace tidewarden {
namespace {

using modGetSetSaveSet::Get;
using modGetSetSaveSet::isNotFalse;
using modGetSetSaveSet::Save;

constexpr char kExampleFile[] = "/examples.txt";

class NoShiftKey : public ShiftKey {
 public:
  [[nodiscard]] bool IsDown() override { return false; }
};

RegionalDateFormat FormatOf(const RegionalFormats& formats) {
  if (auto format = DetectRegionalDateFormat(formats.ShortDate(kProbeDate), formats)) {
    return *std::move(format);
  }
  const PatternRegionalFormats monthFirst("MM/dd/yyyy");
  return DetectRegionalDateFormat(monthFirst.ShortDate(kProbeDate), monthFirst)
      .value_or(RegionalDateFormat{});
}

// Everything but the rows' own file is the same for both previews.
ListPreview Make(SettingsStore& draft, const PreviewPorts& ports, FileSystem& files,
                 const std::string& eventsFile) {
  Save(draft, settings::kShowOnlyIfEventsInRange, "False");
  NoShiftKey noShiftKey;
  ListBuilder builder({draft, files, ports.clock, ports.messages, noShiftKey, {}},
                      FormatOf(ports.formats), eventsFile, ReadTodayPreface(draft));
  static_cast<void>(builder.BuildReminderList(FileAccess::kReadOnly));
  ListPreview preview;
  preview.title = builder.options().titlebarText;
  preview.rows.assign(builder.List1().begin(), builder.List1().end());
  if (isNotFalse(Get(draft, settings::kShowTodaysDateBeneathReminders))) {
    preview.dateLabel = builder.dateLabel();
  }
  SplitMixNumbers random;
  // "random" has the same colours all day long, and the quote is the same one: a preview that
  // flickers shows nothing.
  const LocalTime today{ports.clock.Now().date};
  preview.colours = ApplyListColors(draft, random, today);
  DailyQuote quote(draft, ports.files, random, ports.folders);
  quote.LoadDailyQuote(today);
  if (quote.visible()) preview.quote = quote.text();
  preview.font = ApplyListFont(draft);
  return preview;
}

void AddLine(std::string& lines, CivilDate date, std::string_view title, int notice,
             std::string_view occurs) {
  AppendNumber(lines, MonthOf(date), 2);
  lines += '.';
  AppendNumber(lines, DayOf(date), 2);
  lines.append(",").append(title).append(",");
  AppendNumber(lines, notice);
  lines.append(",").append(occurs).append("\r\n");
}

std::string InYearOf(std::string_view code, CivilDate date) {
  std::string occurs(code);
  AppendNumber(occurs, YearOf(date), 4);
  return occurs;
}

std::string Examples(CivilDate today) {
  std::string lines;
  const CivilDate longAgo = AddDays(today, -1500);
  const CivilDate lastWeek = AddDays(today, -6);
  AddLine(lines, longAgo, "Moved into the house", 0, InYearOf("dp-", longAgo));
  AddLine(lines, lastWeek, "Return the library books", 7, InYearOf("tdo", lastWeek));
  AddLine(lines, today, "Anna's birthday", 7, "yearly");
  AddLine(lines, AddDays(today, 1), "Choir practice", 3, "yearly");
  AddLine(lines, AddDays(today, 5), "Rent", 7, "yearly");
  AddLine(lines, AddDays(today, 12), "Dinner with friends", 14, "yearly");
  return lines;
}

}  // namespace

ListPreview MakeListPreview(SettingsStore& draft, const PreviewPorts& ports,
                            const std::string& eventsFile) {
  return Make(draft, ports, ports.files, eventsFile);
}

ListPreview MakeExamplePreview(SettingsStore& draft, const PreviewPorts& ports) {
  const std::string lines = Examples(ports.clock.Now().date);
  // Memory takes it.
  static_cast<void>(ReplaceFile(ports.examples, kExampleFile, lines).ok());
  return Make(draft, ports, ports.examples, kExampleFile);
}

}  // namespace tidewarden
