#include "platform/posix/posix_regional_formats.h"

#include <iconv.h>
#include <langinfo.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string_view>
#include <utility>
#include <vector>

#include "dates/text.h"

namespace tidewarden {
namespace {

std::string EffectiveLocale() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

bool IsPlain(std::string_view locale) {
  return locale == "C" || locale == "POSIX" || locale.starts_with("C.");
}

// Puts a locale in force for the time category and for its character set, and the former one back
// at the end. The calls for locale objects would leave the process alone, but they find nothing
// but the C locale in a statically linked program.
class TemporaryLocale {
 public:
  explicit TemporaryLocale(const std::string& name)
      : formerTime_(std::setlocale(LC_TIME, nullptr)),
        formerCharacters_(std::setlocale(LC_CTYPE, nullptr)) {
    ok_ = std::setlocale(LC_TIME, name.c_str()) != nullptr &&
          std::setlocale(LC_CTYPE, name.c_str()) != nullptr;
  }
  TemporaryLocale(const TemporaryLocale&) = delete;
  TemporaryLocale& operator=(const TemporaryLocale&) = delete;
  ~TemporaryLocale() {
    // They were in force before, so that this cannot fail.
    static_cast<void>(std::setlocale(LC_TIME, formerTime_.c_str()));
    static_cast<void>(std::setlocale(LC_CTYPE, formerCharacters_.c_str()));
  }

  // False when the system does not have the locale.
  [[nodiscard]] bool ok() const { return ok_; }

  // Text of the locale's own character set as UTF-8, cleaned. Empty when it cannot be converted.
  [[nodiscard]] static std::string Clean(std::string_view text) {
    const char* charset = ::nl_langinfo(CODESET);
    if (std::strcmp(charset, "UTF-8") == 0) return CleanRegionalText(text);
    iconv_t converter = ::iconv_open("UTF-8", charset);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): this is how iconv_open reports failure.
    if (converter == reinterpret_cast<iconv_t>(-1)) {
      return IsAscii(text) ? CleanRegionalText(text) : std::string();
    }
    std::string in(text);
    std::string out(4 * in.size() + 16, '\0');
    char* from = in.data();
    char* to = out.data();
    std::size_t left = in.size();
    std::size_t room = out.size();
    const bool converted =
        ::iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
    ::iconv_close(converter);
    if (!converted) return {};
    out.resize(out.size() - room);
    return CleanRegionalText(out);
  }

  // Puts an item of the locale into `out`, which keeps its text when the item is unusable.
  static void Take(nl_item item, std::string& out) {
    // Some months are padded with a blank (" 1月").
    std::string text(Trim(Clean(::nl_langinfo(item))));
    if (!text.empty()) out = std::move(text);
  }

 private:
  std::string formerTime_;
  std::string formerCharacters_;
  bool ok_ = false;
};

std::tm BrokenDown(CivilDate date) {
  std::tm tm{};
  tm.tm_year = YearOf(date) - 1900;
  tm.tm_mon = MonthOf(date) - 1;
  tm.tm_mday = DayOf(date);
  tm.tm_wday = WeekdayNumber(date) - 1;
  tm.tm_yday = DaysBetween(MakeDate(YearOf(date), 1, 1), date);
  return tm;
}

// A field of a pattern for strftime, from its "%" to behind its letter.
struct Conversion {
  std::string_view letters;  // of the same field in a regional pattern; empty when it is no part
  std::size_t begin = 0;
  std::size_t end = 0;
};

std::string_view PatternLetters(char conversion) {
  switch (conversion) {
    case 'Y':
    case 'y':
    case 'G':
      return "yyyy";
    case 'm':
    case 'b':
    case 'B':
    case 'h':
      return "MM";
    case 'd':
    case 'e':
      return "dd";
    default:
      return {};
  }
}

// Day, month and year in the order of their first appearance.
std::vector<Conversion> Conversions(std::string_view pattern) {
  std::vector<Conversion> fields;
  Conversion field;
  while ((field.begin = pattern.find('%', field.end)) != std::string_view::npos) {
    // Behind the sign stand flags and modifiers, then the letter.
    const std::size_t letter = pattern.find_first_not_of("EO_-0^#", field.begin + 1);
    if (letter == std::string_view::npos) break;
    field.letters = PatternLetters(pattern[letter]);
    field.end = letter + 1;
    const bool isNew = std::none_of(fields.begin(), fields.end(), [&](const Conversion& other) {
      return other.letters == field.letters;
    });
    if (isNew && !field.letters.empty()) fields.push_back(field);
  }
  return fields;
}

// The order of day, month and year in a pattern for strftime, as pattern letters. They are joined
// by what stands between day and month, blanks left out, when it is a separator of dates in
// digits; else by "/".
std::string NumericPattern(std::string_view pattern) {
  const std::vector<Conversion> fields = Conversions(pattern);
  if (fields.size() != 3) return "yyyy/MM/dd";
  std::string separator = "/";
  for (std::size_t i = 1; i < fields.size(); ++i) {
    const Conversion& before = fields[i - 1];
    const Conversion& after = fields[i];
    if (before.letters == "yyyy" || after.letters == "yyyy") continue;
    const std::string cleaned =
        TemporaryLocale::Clean(pattern.substr(before.end, after.begin - before.end));
    const std::string_view between = Trim(cleaned);
    if (between == "." || between == "-") separator = between;
  }
  std::string out(fields[0].letters);
  out.append(separator).append(fields[1].letters).append(separator).append(fields[2].letters);
  return out;
}

}  // namespace

PosixRegionalFormats::PosixRegionalFormats()
    : NamedRegionalFormats(EnglishCalendarNames()), localeName_(EffectiveLocale()) {
  if (IsPlain(localeName_)) return;
  const TemporaryLocale locale(localeName_);
  if (!locale.ok()) return;
  datePattern_ = ::nl_langinfo(D_FMT);
  CalendarNames names = EnglishCalendarNames();
  // The item numbers of a kind follow one another.
  for (std::size_t i = 0; i < names.months.size(); ++i) {
    TemporaryLocale::Take(MON_1 + static_cast<nl_item>(i), names.months[i]);
    TemporaryLocale::Take(ABMON_1 + static_cast<nl_item>(i), names.monthAbbreviations[i]);
    TemporaryLocale::Take(ALTMON_1 + static_cast<nl_item>(i), names.monthsAlone[i]);
  }
  for (std::size_t i = 0; i < names.weekdays.size(); ++i) {
    TemporaryLocale::Take(DAY_1 + static_cast<nl_item>(i), names.weekdays[i]);
    TemporaryLocale::Take(ABDAY_1 + static_cast<nl_item>(i), names.weekdayAbbreviations[i]);
  }
  SetNames(std::move(names));
}

std::string PosixRegionalFormats::ShortDate(CivilDate date) const {
  if (!datePattern_.empty()) {
    const TemporaryLocale locale(localeName_);
    if (locale.ok()) {
      const std::tm tm = BrokenDown(date);
      std::array<char, 256> text{};
      const std::size_t length = std::strftime(text.data(), text.size(), datePattern_.c_str(), &tm);
      std::string shown = TemporaryLocale::Clean({text.data(), length});
      // The C library knows one form of a date only. Where that is written in words, as in
      // Chinese or Icelandic, the short one has the same order and separator in digits.
      constexpr std::string_view kOfShortDates = "0123456789./- ";
      const bool isShort = shown.find_first_not_of(kOfShortDates) == std::string::npos;
      if (!shown.empty() && isShort) return shown;
      return FormatByPattern(NumericPattern(datePattern_), date, names());
    }
  }
  return FormatByPattern("MM/dd/yyyy", date, names());
}

}  // namespace tidewarden
