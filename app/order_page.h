// The address of the order page, chosen when the program is built (CMake option
// TIDEWARDEN_ORDER_PAGE); empty for none.
#pragma once

namespace tidewarden {

inline constexpr const char* kOrderPage = TIDEWARDEN_ORDER_PAGE;

}  // namespace tidewarden
