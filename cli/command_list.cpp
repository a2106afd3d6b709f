#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "core/event_line.h"
#include "dates/regional_text.h"
#include "dates/text.h"
#include "dates/time_of_day.h"
#include "platform/memory/memory_ports.h"
#include "reminder/list_builder.h"

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

std::string AsJson(const ListBuilder& builder) {
  nlohmann::ordered_json items = nlohmann::ordered_json::array();
  for (std::size_t i = 0; i < builder.List1().size(); ++i) {
    const ReminderRow& row = builder.rows()[i];
    nlohmann::ordered_json item;
    item["line"] = builder.ReminderLineMap()[i];
    item["text"] = builder.List1()[i];
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
ExitCode PrintText(const ListBuilder& builder, ExitCode code) {
  constexpr std::size_t kPiece = std::size_t{64} * 1024;
  std::string text;
  for (const std::string_view row : builder.List1()) {
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
  ListBuilder builder(
      {*world.settings, *world.files, clock, messages, shiftKey, SystemFolders().userData},
      world.format, path, ReadTodayPreface(*world.settings));
  // Where the window would not be shown at all, the list is empty.
  static_cast<void>(
      builder.BuildReminderList(arguments.update ? FileAccess::kUpdate : FileAccess::kReadOnly));
  if (!builder.readStatus().ok() && !builder.couldNotCreate()) {
    Complain(path + ": " + DescribeStatus(builder.readStatus()));
    return kCannotRead;
  }
  ExitCode code = arguments.onlyIfAny && !builder.anyEventsInRange() ? kFindings : kDone;
  if (!builder.writeStatus().ok()) {
    Complain(path + ": cannot be changed: " + DescribeStatus(builder.writeStatus()));
    code = kCannotWrite;
  }
  FileStamp stamp;
  if (!options.settings.empty() && !world.files->GetStamp(options.settings, stamp).ok()) {
    Complain(options.settings + ": cannot be created");
    code = kCannotWrite;
  }
  return options.json ? Print(AsJson(builder), code) : PrintText(builder, code);
}

}  // namespace tidewarden::cli
