// The user's date layout and names from the C library's locale data, for the time category.
#pragma once

#include <memory>
#include <string>

#include "dates/regional_text.h"

namespace tidewarden {

class PosixRegionalFormats : public NamedRegionalFormats {
 public:
  // Reads LC_ALL, LC_TIME and LANG from the environment, in this order. Without any of them, for
  // "C", "POSIX" and a locale that is not installed, the answers are in English.
  PosixRegionalFormats();

  [[nodiscard]] std::string ShortDate(CivilDate date) const override;

 private:
  std::string datePattern_;  // for strftime; empty without a locale
  std::string localeName_;
};

}  // namespace tidewarden
