// The simple case mappings of the Unicode Character Database as tables of ranges.
//
// Only dates/text.cpp reads them; everybody else calls ToLower and ToUpper.
#pragma once

#include <cstdint>
#include <span>

namespace tidewarden {

// Every `step`-th character from `first` to `last` maps to itself plus `delta`.
struct CaseRange {
  char32_t first;
  char32_t last;
  std::uint32_t step;
  std::int32_t delta;
};

// Sorted by `first`, without overlaps; characters below U+0080 are left out.
[[nodiscard]] std::span<const CaseRange> LowerCaseRanges();
[[nodiscard]] std::span<const CaseRange> UpperCaseRanges();

}  // namespace tidewarden
