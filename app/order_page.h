// The address of the order page, chosen when the program is built (CMake option
// TIDEWARDEN_ORDER_PAGE); empty for none.
#pragma once

#include <string_view>

namespace tidewarden {

inline constexpr std::string_view kOrderPage = TIDEWARDEN_ORDER_PAGE;

}  // namespace tidewarden
