// The notification area in memory: shows nothing, records what it was asked to show.
#pragma once

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "alarm/notification_area.h"

namespace tidewarden {

class MemoryNotificationArea : public NotificationArea {
 public:
  struct Call {
    NotifyIconMessage message = NotifyIconMessage::kAdd;
    NotifyIconRecord record;
    std::array<unsigned char, sizeof(NotifyIconRecord)> bytes{};  // of the record
    std::string tooltip;
  };
  std::vector<Call> calls;
  bool available = true;
  bool refusesIcons = false;  // and is then none while an icon is to be shown

  void NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                  std::string_view tooltip) override {
    Call call{message, record, {}, std::string(tooltip)};
    std::memcpy(call.bytes.data(), &record, sizeof record);
    calls.push_back(call);
    isRefused_ = refusesIcons && message != NotifyIconMessage::kDelete;
  }

  [[nodiscard]] bool IsAvailable() override { return available && !isRefused_; }

  // "add", "modify" and "delete", in the order of the calls.
  [[nodiscard]] std::vector<std::string> Messages() const {
    std::vector<std::string> words;
    for (const Call& call : calls) {
      const bool isAdd = call.message == NotifyIconMessage::kAdd;
      const bool isModify = call.message == NotifyIconMessage::kModify;
      words.emplace_back(isAdd ? "add" : isModify ? "modify" : "delete");
    }
    return words;
  }

 private:
  bool isRefused_ = false;
};

}  // namespace tidewarden
