#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "core/event_line.h"
#include "dates/regional_text.h"
#include "dates/text.h"
#include "dates/time_of_day.h"
#include "platform/memory/memory_ports.h"
#include "reminder/reminder_session.h"

namespace tidewarden::cli {
namespace {

// Messages of the engine go to standard error; there is nobody to answer.
class TerminalMessages : public MessageBox {
 public:
  MessageAnswer Show(const std::string& text, MessageButtons /*buttons*/,
                     MessageIcon /*icon*/) override {
    Complain(text);
    return MessageAnswer::kOk;
  }
};

const char* KindName(RowKind kind) {
  switch (kind) {
    case RowKind::kTodayLine:
      return "today-line";
    case RowKind::kCounter:
      return "counter";
    case RowKind::kUpcoming:
      return "upcoming";
    case RowKind::kToday:
      return "today";
    case RowKind::kOverdue:
      return "overdue";
  }
  return "";
}

std::string ClockText(int fourDigit) {
  std::string text;
  AppendNumber(text, fourDigit / 100, 2);
  text += ":";
  AppendNumber(text, fourDigit % 100, 2);
  return text;
}

std::string AsJson(const ReminderSession& session) {
  nlohmann::ordered_json items = nlohmann::ordered_json::array();
  for (std::size_t i = 0; i < session.List1().size(); ++i) {
    const ReminderRow& row = session.rows()[i];
    nlohmann::ordered_json item;
    item["line"] = session.ReminderLineMap()[i];
    item["text"] = session.List1()[i];
    item["kind"] = KindName(row.kind);
    item["date"] = IsoDate(row.date);
    item["days"] = row.daysToGo;
    item["title"] = row.title;
    const bool timed = row.kind != RowKind::kTodayLine && row.timeOfDay < kNoTimeOfDay;
    item["time"] = timed ? nlohmann::ordered_json(ClockText(row.timeOfDay)) : nullptr;
    items.push_back(std::move(item));
  }
  return items.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

// Row by row, so that a long list is not held twice.
ExitCode PrintText(const ReminderSession& session, ExitCode code) {
  constexpr std::size_t kPiece = std::size_t{64} * 1024;
  std::string text;
  for (const std::string_view row : session.List1()) {
    text.append(row).push_back('\n');
    if (text.size() < kPiece) continue;
    if (Print(text, kDone) != kDone) return kCannotWrite;
    text.clear();
  }
  return Print(text, code);
}

}  // namespace

ExitCode RunList(const CommonOptions& options, const ListArguments& arguments) {
  World world;
  if (const auto code = Open(options, world)) return *code;
  const std::string path = EventsFile(options, world);

  MemoryClock clock;
  clock.now = world.now;
  TerminalMessages messages;
  MemoryShiftKey shiftKey;
  ReminderSession session({*world.settings, *world.files, clock, messages, shiftKey}, world.format,
                          path, arguments.update ? FileAccess::kUpdate : FileAccess::kReadOnly);
  session.ReadTodayPreface();
  // Where the window would not be shown at all, the list is empty.
  static_cast<void>(session.BuildReminderList());
  if (!session.readStatus().ok()) {
    Complain(path + ": " + DescribeStatus(session.readStatus()));
    return kCannotRead;
  }
  ExitCode code = arguments.onlyIfAny && !session.anyEventsInRange() ? kFindings : kDone;
  if (!session.writeStatus().ok()) {
    Complain(path + ": cannot be changed: " + DescribeStatus(session.writeStatus()));
    code = kCannotWrite;
  }
  FileStamp stamp;
  if (!options.settings.empty() && !world.files->GetStamp(options.settings, stamp).ok()) {
    Complain(options.settings + ": cannot be created");
    code = kCannotWrite;
  }
  return options.json ? Print(AsJson(session), code) : PrintText(session, code);
}

}  // namespace tidewarden::cli
