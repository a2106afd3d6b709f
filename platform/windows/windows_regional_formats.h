// The user's date layout and names as set in Windows' regional settings.
#pragma once

#include <string>

#include "dates/regional_text.h"

namespace tidewarden {

class WindowsRegionalFormats : public NamedRegionalFormats {
 public:
  // Names and dates of a locale such as L"de-DE"; nullptr is the user's own choice, changes that
  // he has made to his locale included. An unknown locale answers in English.
  explicit WindowsRegionalFormats(const wchar_t* locale = nullptr);

  // Of the Gregorian calendar, whatever calendar the locale prefers.
  [[nodiscard]] std::string ShortDate(CivilDate date) const override;

 private:
  [[nodiscard]] const wchar_t* Locale() const;

  std::wstring locale_;      // empty for the user's own
  std::string pattern_;      // letters of the short date; empty for an unknown locale
  bool isForSystem_ = true;  // the system's own answer is one of the Gregorian calendar
};

}  // namespace tidewarden
