#include "editor/print_page.h"

#include <charconv>
#include <utility>

#include "core/settings_keys.h"
#include "dates/text.h"
#include "editor/html_text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr double kDefaultWidth = 90;
constexpr double kLeastWidth = 50;
constexpr double kMostWidth = 100;
constexpr int kMonths = 12;

// The widths of the columns as attributes of their cells.
constexpr std::array<std::string_view, 4> kWidths{" width=\"10%\"", " width=\"63%\"",
                                                  " width=\"14%\"", " width=\"13%\""};

void AppendLine(std::string& out, std::string_view line) {
  out.append(line).append(kLineEnd);
}

// The shortest text of a number.
std::string NumberText(double number) {
  std::array<char, 32> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), written.ptr};
}

std::string StyleOf(std::string_view selector, std::string_view font, std::string_view rest) {
  std::string style(selector);
  style += " {font-family: ";
  AppendFontName(style, font);
  return style.append("; ").append(rest).append("}");
}

void AppendHead(std::string& out, const PageOptions& options) {
  AppendLine(out, R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN">)");
  AppendLine(out, "<html>");
  AppendLine(out, "<head>");
  AppendLine(out, "<title>Tidewarden Events</title>");
  AppendLine(out, R"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-1">)");
  AppendLine(out, "");
  AppendLine(out, R"(<style type="text/css">)");
  AppendLine(out, StyleOf("tr.month", options.monthFont, "font-weight: bold; text-align: center"));
  AppendLine(out, "</style>");
  AppendLine(out, "");
  AppendLine(out, R"(<style type="text/css">)");
  AppendLine(out, StyleOf("tr.event", options.eventFont, "font-weight: normal; text-align: left"));
  AppendLine(out, "</style>");
  AppendLine(out, "");
  AppendLine(out, "</head>");
  AppendLine(out, "");
  AppendLine(out, "<body>");
  out += "<table width=\"" + NumberText(options.widthPercent) + "%\" border=\"";
  out += options.hasBorder ? "1" : "0";
  AppendLine(out, R"(" align="center" cellspacing="0" cellpadding="2">)");
}

void AppendSpacer(std::string& out) {
  AppendLine(out, R"(  <tr class="month">)");
  AppendLine(out, R"(    <td colspan="4">&nbsp;</td>)");
  AppendLine(out, "  </tr>");
}

void AppendHeading(std::string& out, std::string_view heading) {
  AppendLine(out, R"(  <tr class="month">)");
  out += R"(    <td colspan="4">)";
  AppendHtmlText(out, heading);
  AppendLine(out, "</td>");
  AppendLine(out, "  </tr>");
}

// What a row says, by its columns.
using PageCells = std::array<std::string_view, 4>;

PageCells PageCellsOf(std::string_view row) {
  constexpr std::size_t kAdvanceLength = 8;
  const RowFields fields = FieldsOf(row);
  const std::string_view advance =
      Characters(row, kAdvanceColumn, kAdvanceColumn + kAdvanceLength - 1);
  return {fields.date, fields.title, Trim(advance), fields.occurs};
}

void AppendEvent(std::string& out, const PageCells& cells, bool hasWidths) {
  AppendLine(out, R"(  <tr class="event">)");
  for (std::size_t column = 0; column < cells.size(); ++column) {
    out += "    <td";
    if (hasWidths) out += kWidths[column];
    out += '>';
    AppendHtmlText(out, cells[column]);
    AppendLine(out, "</td>");
  }
  AppendLine(out, "  </tr>");
}

bool IsTodayRow(std::string_view row) {
  return ToLower(row).find("  <today>") != std::string::npos;
}

// The part of the page that an event stands in.
enum class DateKind { kOrdinary, kFeastCode, kFromEaster };

DateKind DateKindOf(std::string_view date) {
  if (date.starts_with('_')) return DateKind::kFeastCode;
  const std::string lower = ToLower(date);
  // The one feast code without a "_" is Easter itself.
  const bool isEaster = lower.starts_with("e-") || lower.starts_with("e+") || lower == "eastr";
  return isEaster ? DateKind::kFromEaster : DateKind::kOrdinary;
}

std::string HeadingOf(std::string_view date, DateKind kind, const RegionalDateFormat& format,
                      const RegionalFormats& names) {
  if (kind == DateKind::kFeastCode) return "Non-Gregorian Calendar Holidays";
  if (kind == DateKind::kFromEaster) return "Easter-Fixed Holidays";
  const std::string_view month =
      format.IsMonthFirst() ? FirstCharacters(date, 2) : LastCharacters(date, 2);
  if (ToLower(month) == "xx") return "Monthly Events";
  const double number = LeadingNumber(month);
  if (number < 1 || number > kMonths) return std::string(month);
  return names.MonthName(static_cast<int>(number));
}

// Collects the rows of the table in the order in which they are printed.
class TableWriter {
 public:
  TableWriter(const RegionalDateFormat& format, const RegionalFormats& names,
              const PageOptions& options)
      : format_(format), names_(names), options_(options) {}

  void Add(std::string_view row) {
    const PageCells cells = PageCellsOf(row);
    if (!options_.isPrinted[static_cast<std::size_t>(PrintedTypeOf(cells.back()))]) return;
    const DateKind kind = DateKindOf(cells.front());
    if (options_.hasMonthHeaders) OpenHeading(cells.front(), kind);
    const bool isSpecial = kind != DateKind::kOrdinary;
    AppendEvent(isSpecial ? special_ : ordinary_, cells, hasWidths_);
    if (!isSpecial) hasWidths_ = false;
  }

  [[nodiscard]] const std::string& ordinary() const { return ordinary_; }

  // The special rows with what separates them from the others; empty without any.
  [[nodiscard]] std::string special() const {
    std::string out;
    if (special_.empty()) return out;
    if (hasHeading_) AppendSpacer(out);
    AppendHeading(out, "Non-Gregorian Holidays");
    return out.append(special_).append(kLineEnd);
  }

 private:
  // The heading of a special row is not written, but the rows behind it open theirs again.
  void OpenHeading(std::string_view date, DateKind kind) {
    std::string heading = HeadingOf(date, kind, format_, names_);
    if (heading != lastHeading_ && kind == DateKind::kOrdinary) {
      if (hasHeading_) AppendSpacer(ordinary_);
      AppendHeading(ordinary_, heading);
      hasHeading_ = true;
    }
    lastHeading_ = std::move(heading);
  }

  const RegionalDateFormat& format_;
  const RegionalFormats& names_;
  const PageOptions& options_;
  std::string ordinary_;
  std::string special_;
  std::string lastHeading_;
  bool hasHeading_ = false;
  bool hasWidths_ = true;  // up to the first ordinary row
};

double ReadWidth(SettingsStore& settings) {
  const auto& setting = settings::kTableWidthAsPercentageOfPage;
  const double width = LeadingNumber(modGetSetSaveSet::Get(settings, setting));
  if (width >= kLeastWidth && width <= kMostWidth) return width;
  modGetSetSaveSet::Save(settings, setting, NumberText(kDefaultWidth));
  return kDefaultWidth;
}

}  // namespace

PrintedType PrintedTypeOf(std::string_view occurs) {
  const std::string lower = ToLower(occurs);
  if (lower == "yearly") return PrintedType::kYearly;
  if (lower == "quarter") return PrintedType::kQuarterly;
  if (lower == "monthly") return PrintedType::kMonthly;
  if (lower.starts_with("one2")) return PrintedType::kOneTime;
  if (lower.size() >= 2 && IsDigits(lower.substr(0, 2))) return PrintedType::kEverySoManyDays;
  if (lower.starts_with("tdo2")) return PrintedType::kUntilDone;
  const bool isCounter = lower.starts_with("df-") || lower.starts_with("dp-");
  return isCounter ? PrintedType::kCounter : PrintedType::kDayOfTheMonth;
}

PageOptions ReadPageOptions(SettingsStore& settings) {
  using modGetSetSaveSet::Get;
  PageOptions options;
  options.hasBorder = modGetSetSaveSet::isNotFalse(Get(settings, settings::kShowTableBorder));
  options.widthPercent = ReadWidth(settings);
  options.hasMonthHeaders = modGetSetSaveSet::isTrue(Get(settings, settings::kShowMonthHeaders));
  options.monthFont = Get(settings, settings::kMonthFontName);
  options.eventFont = Get(settings, settings::kEventFontName);
  for (std::size_t type = 0; type < kPrintedTypes; ++type) {
    options.isPrinted[type] =
        modGetSetSaveSet::isTrue(Get(settings, settings::kEventTypesToPrint[type]));
  }
  return options;
}

std::string PrintPage(const std::vector<EventRow>& rows, const RegionalDateFormat& format,
                      const RegionalFormats& names, const PageOptions& options) {
  TableWriter table(format, names, options);
  for (const EventRow& row : rows) {
    if (!IsTodayRow(row.text)) table.Add(row.text);
  }
  std::string page;
  AppendHead(page, options);
  page += table.ordinary();
  page += kLineEnd;
  page += table.special();
  AppendLine(page, "</table>");
  AppendLine(page, "</body>");
  AppendLine(page, "</html>");
  return page;
}

}  // namespace tidewarden
