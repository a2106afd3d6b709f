// Keeps copies of many small texts together, for as long as the pool lives.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tidewarden {

// Views that the pool gives out stay good when the pool moves.
class TextPool {
 public:
  TextPool() = default;
  TextPool(TextPool&& other) noexcept { *this = std::move(other); }
  TextPool& operator=(TextPool&& other) noexcept {
    blocks_ = std::exchange(other.blocks_, {});
    next_ = std::exchange(other.next_, nullptr);
    left_ = std::exchange(other.left_, 0);
    return *this;
  }
  TextPool(const TextPool&) = delete;
  TextPool& operator=(const TextPool&) = delete;
  ~TextPool() = default;

  [[nodiscard]] std::string_view Keep(std::string_view text) { return Join({&text, 1}); }

  // Keeps texts as one, the one behind the other.
  [[nodiscard]] std::string_view Join(std::span<const std::string_view> texts) {
    std::size_t size = 0;
    for (const std::string_view text : texts) size += text.size();
    if (size > left_) {
      left_ = std::max(kBlock, size);
      blocks_.push_back(std::make_unique_for_overwrite<char[]>(left_));
      next_ = blocks_.back().get();
    }
    const char* const place = next_;
    for (const std::string_view text : texts) next_ = std::copy(text.begin(), text.end(), next_);
    left_ -= size;
    return {place, size};
  }

 private:
  static constexpr std::size_t kBlock = std::size_t{16} * 1024;

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace tidewarden
