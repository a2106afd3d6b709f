// Cuts bytes that arrive in pieces into lines.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace tidewarden {

// A line is ended by CR LF, LF or a lone CR, also where a piece ends between the two.
class LineSplitter {
 public:
  // Calls `visit(std::string_view line)` for every line that ends in this piece.
  template <typename Visit>
  void Take(std::string_view piece, Visit visit) {
    std::size_t begin = 0;
    if (skipLineFeed_ && !piece.empty()) {
      skipLineFeed_ = false;
      if (piece[0] == '\n') begin = 1;
    }
    if (HoldsLoneCarriageReturn(piece)) {
      begin = TakeAnyEnd(piece, begin, visit);
    } else {
      begin = TakeLineFeeds(piece, begin, visit);
    }
    rest_.append(piece.substr(begin));
  }

  // Calls `visit` with a last line that has no end.
  template <typename Visit>
  void Finish(Visit visit) {
    if (!rest_.empty()) Emit({}, visit);
  }

 private:
  // Also true when the last byte is a CR, whose LF may stand in the next piece. The loop has no
  // branches, so that it runs over many bytes at once.
  static bool HoldsLoneCarriageReturn(std::string_view piece) {
    if (piece.empty()) return false;
    const char* const bytes = piece.data();
    const std::size_t last = piece.size() - 1;
    // Whole bytes as flags keep the loop in byte-wide vector registers.
    unsigned char lone = bytes[last] == '\r' ? 0xFF : 0;
    for (std::size_t i = 0; i < last; ++i) {
      const unsigned char isReturn = bytes[i] == '\r' ? 0xFF : 0;
      const unsigned char feedFollows = bytes[i + 1] == '\n' ? 0xFF : 0;
      lone |= static_cast<unsigned char>(isReturn & ~feedFollows);
    }
    return lone != 0;
  }

  // Both return where the line begins that is still open at the end of the piece.
  template <typename Visit>
  std::size_t TakeLineFeeds(std::string_view piece, std::size_t begin, Visit& visit) {
    while (begin < piece.size()) {
      const void* const found = std::memchr(piece.data() + begin, '\n', piece.size() - begin);
      if (found == nullptr) break;
      const auto end = static_cast<std::size_t>(static_cast<const char*>(found) - piece.data());
      const bool carriageReturn = end > begin && piece[end - 1] == '\r';
      Emit({piece.data() + begin, end - begin - (carriageReturn ? 1 : 0)}, visit);
      begin = end + 1;
    }
    return begin;
  }

  template <typename Visit>
  std::size_t TakeAnyEnd(std::string_view piece, std::size_t begin, Visit& visit) {
    for (std::size_t end = piece.find_first_of("\r\n", begin); end != std::string_view::npos;
         end = piece.find_first_of("\r\n", begin)) {
      Emit(piece.substr(begin, end - begin), visit);
      begin = end + 1;
      if (piece[end] != '\r') continue;
      skipLineFeed_ = begin == piece.size();
      if (!skipLineFeed_ && piece[begin] == '\n') ++begin;
    }
    return begin;
  }

  template <typename Visit>
  void Emit(std::string_view end, Visit& visit) {
    if (rest_.empty()) {
      visit(end);
      return;
    }
    rest_ += end;
    visit(std::string_view(rest_));
    rest_.clear();
  }

  std::string rest_;  // the start of a line whose end has not come yet
  bool skipLineFeed_ = false;
};

}  // namespace tidewarden
