#include "dates/event_date_rules.h"

namespace tidewarden {
namespace {

std::optional<CivilDate> RealDate(int year, int month, int day) {
  const CivilDate date = MakeDate(year, month, day);
  // Every month has 28 days; only the later ones need a look at the calendar.
  constexpr int kDaysOfEveryMonth = 28;
  const bool plain = month >= 1 && month <= 12 && day >= 1 && day <= kDaysOfEveryMonth;
  return (plain && year <= kLastYear) || IsRealDate(date) ? std::optional(date) : std::nullopt;
}

bool IsFixed(int monthOrDay) {
  return monthOrDay > DateField::kAny;
}

std::optional<CivilDate> NextFeast(const Feast& feast, CivilDate today) {
  auto date = FeastDate(feast, YearOf(today));
  if (date && *date < today) date = FeastDate(feast, YearOf(today) + 1);
  return date;
}

std::optional<CivilDate> DateAsItStands(const DateField& field, const Occurs& occurs,
                                        CivilDate today) {
  if (field.isFeast || !IsFixed(field.month) || !IsFixed(field.day)) return std::nullopt;
  return RealDate(occurs.year >= 0 ? occurs.year : YearOf(today), field.month, field.day);
}

}  // namespace

std::optional<CivilDate> NthWeekdayDate(int month, int year, int weekday, int ordinal) {
  if (month < 1 || month > 12 || year < kFirstYear || year > kLastYear) return std::nullopt;
  const int lastDay = LastDayOfMonth(year, month);
  if (ordinal == -1) return MakeDate(year, month, lastDay);
  constexpr int kMostInAMonth = 5;
  if (weekday < 1 || weekday > 7 || ordinal > kMostInAMonth) return std::nullopt;
  const int firstWeekday = WeekdayNumber(MakeDate(year, month, 1));
  const int first = 1 + (weekday - firstWeekday + 7) % 7;
  const int day = ordinal > 0 ? first + 7 * (ordinal - 1) : first + (lastDay - first) / 7 * 7;
  if (day > lastDay) return std::nullopt;
  return MakeDate(year, month, day);
}

std::optional<CivilDate> NextNthWeekdayYearly(const DateField& field, const Occurs& occurs,
                                              CivilDate today) {
  const int year = YearOf(today);
  auto date = NthWeekdayDate(field.month, year, occurs.weekday, occurs.ordinal);
  if (date && *date < today) {
    date = NthWeekdayDate(field.month, year + 1, occurs.weekday, occurs.ordinal);
  }
  return date;
}

std::optional<CivilDate> NextNthWeekdayMonthly(const Occurs& occurs, CivilDate today) {
  const int year = YearOf(today);
  const int month = MonthOf(today);
  auto date = NthWeekdayDate(month, year, occurs.weekday, occurs.ordinal);
  if (date && *date < today) {
    date = NthWeekdayDate(month % 12 + 1, month == 12 ? year + 1 : year, occurs.weekday,
                          occurs.ordinal);
  }
  return date;
}

std::optional<CivilDate> NextMonthlyDate(const DateField& field, int year, CivilDate today) {
  if (!IsFixed(field.day) || year < kFirstYear || year > kLastYear) return std::nullopt;
  int month = MonthOf(today);
  if (field.day < DayOf(today)) month = month % 12 + 1;
  const int lastDay = LastDayOfMonth(year, month);
  return MakeDate(year, month, field.day < lastDay ? field.day : lastDay);
}

std::optional<CivilDate> NextQuarterDate(const DateField& field, CivilDate today) {
  if (field.isFeast || field.month == DateField::kNotADate || field.day == DateField::kNotADate) {
    return std::nullopt;
  }
  const int year = YearOf(today);
  const auto dayIn = [&](int month) { return field.day == DateField::kAny ? month : field.day; };
  const auto monthFrom = [](int number, int modulus) {
    return number % modulus == 0 ? modulus : number % modulus;
  };
  std::optional<CivilDate> best;
  int fewest = 365;
  const auto consider = [&](std::optional<CivilDate> candidate) {
    if (!candidate) return;
    const int days = DaysBetween(today, *candidate);
    if (days >= 0 && days < fewest) {
      fewest = days;
      best = candidate;
    }
  };
  for (int i = 0; i < 4; ++i) {
    const int month = monthFrom(i * 3 + field.month, 12);
    consider(RealDate(year, month, dayIn(month)));
  }
  const int firstMonth = monthFrom(field.month, 3);
  consider(RealDate(year + 1, firstMonth, dayIn(firstMonth)));
  const int ownMonth = monthFrom(field.month, 12);
  return best ? best : RealDate(year, ownMonth, dayIn(ownMonth));
}

CivilDate NextEveryNDays(CivilDate start, const Occurs& occurs, CivilDate today) {
  const int n = occurs.interval;
  const int step = n - (DaysBetween(start, today) + n) % n;
  return step == n ? today : AddDays(today, step);
}

std::optional<CivilDate> EventDateByRule(const DateField& field, const Occurs& occurs,
                                         CivilDate today) {
  if (occurs.IsCounter()) return DateAsItStands(field, occurs, today);
  if (occurs.kind == OccursKind::kQuarter) return NextQuarterDate(field, today);
  if (field.isFeast) return NextFeast(field.feast, today);
  if (field.month == DateField::kAny && field.day == DateField::kAny) {
    return NextNthWeekdayMonthly(occurs, today);
  }
  if (field.month == DateField::kAny) {
    return NextMonthlyDate(field, occurs.year >= 0 ? occurs.year : YearOf(today), today);
  }
  if (field.day == DateField::kAny) return NextNthWeekdayYearly(field, occurs, today);
  const auto date = DateAsItStands(field, occurs, today);
  if (date && occurs.kind == OccursKind::kEveryNDays && occurs.interval > 0 && *date < today) {
    return NextEveryNDays(*date, occurs, today);
  }
  return date;
}

std::optional<CivilDate> MoveToNextYear(CivilDate date, CivilDate today) {
  if (YearOf(date) != YearOf(today)) return date;
  return RealDate(YearOf(date) + 1, MonthOf(date), DayOf(date));
}

bool IsMovedOn(const Occurs& occurs) {
  return occurs.kind != OccursKind::kOneTime && occurs.kind != OccursKind::kTilDone &&
         !occurs.IsCounter();
}

bool HasOneDate(const DateField& field, const Occurs& occurs) {
  if (occurs.IsCounter()) return true;
  const bool isWhole = field.month != DateField::kAny && field.day != DateField::kAny;
  return !IsMovedOn(occurs) && !field.isFeast && isWhole;
}

std::optional<CivilDate> NextOccurrence(const DateField& field, const Occurs& occurs,
                                        CivilDate today) {
  const auto date = EventDateByRule(field, occurs, today);
  if (!date || *date >= today || !IsMovedOn(occurs)) return date;
  return MoveToNextYear(*date, today);
}

}  // namespace tidewarden
