// What the fuzz targets share: the assertion that also works in optimized builds, and the layouts
// that they run in.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "dates/date_text.h"
#include "dates/regional_text.h"

namespace tidewarden::fuzz {

[[noreturn]] inline void Fail(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
  std::abort();
}

// Input as text. An empty input may come without any memory behind it.
inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return size == 0 ? std::string_view()
                   : std::string_view(reinterpret_cast<const char*>(data), size);
}

// Takes the first byte off the input; 0 when there is none.
inline unsigned TakeByte(std::string_view& input) {
  if (input.empty()) return 0;
  const unsigned byte = static_cast<unsigned char>(input.front());
  input.remove_prefix(1);
  return byte;
}

inline const std::array<RegionalDateFormat, 5>& Layouts() {
  static const auto layouts = [] {
    constexpr std::string_view kPatterns[] = {"MM/dd/yyyy", "dd.MM.yyyy", "yyyy-MM-dd", "yy/MM/dd",
                                              "dd MM yyyy"};
    std::array<RegionalDateFormat, 5> out;
    for (std::size_t i = 0; i < out.size(); ++i) {
      const PatternRegionalFormats formats{std::string(kPatterns[i])};
      const auto format = DetectRegionalDateFormat(formats.ShortDate(kProbeDate), formats);
      if (!format) Fail("a layout is supported", __FILE__, __LINE__);
      out[i] = *format;
    }
    return out;
  }();
  return layouts;
}

inline const RegionalDateFormat& LayoutFor(unsigned byte) {
  return Layouts()[byte % Layouts().size()];
}

}  // namespace tidewarden::fuzz

#define FUZZ_CHECK(condition) \
  ((condition) ? void() : ::tidewarden::fuzz::Fail(#condition, __FILE__, __LINE__))
