// One icon in the notification area on behalf of a window.
//
// The icon stands there while Visible is true; its picture and its tooltip can be changed at any
// time. The mouse over it comes back as three events. It knows no window and no toolkit: pictures
// and windows are numbers, and the area is a port. To connect the two:
//
//   TrayIcon icon(area);
//   area.Mouse = [&](IconMouseMessage message) {
//     icon.HandleCallback(static_cast<double>(message), 1);
//   };
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "alarm/notification_area.h"

namespace tidewarden {

enum class TrayButton { kLeft = 1, kRight = 2 };

class TrayIcon {
 public:
  // The area outlives the icon. Nothing is shown yet. Destroying the icon does not take it out of
  // the area; setting Visible to false does.
  explicit TrayIcon(NotificationArea& area) : area_(area) {}

  // The window that hears of the mouse. To be set before Visible is set to true.
  WindowHandle OwnerForm = 0;

  // True adds the icon, also once more when it is there already; false takes it away. The state
  // is kept whether or not the area could do it.
  void Visible(bool blnData);
  [[nodiscard]] bool Visible() const { return isVisible_; }

  // The picture. While the icon is hidden it is only stored.
  void Icon(IconHandle vData);
  [[nodiscard]] IconHandle Icon() const { return icon_; }

  // The tooltip in UTF-8, lines separated by CR LF. While the icon is hidden it is only stored.
  // All of it can be read back, although the record has room for 64 bytes: a text that fills them
  // has no NUL at its end there.
  void Tooltip(std::string_view vData);
  [[nodiscard]] std::string_view Tooltip() const;

  // Hands the present picture and tooltip to the area.
  void Modify();

  // The events. A handler may do anything, destroying this icon included; while one runs, further
  // calls of HandleCallback raise nothing. They may be left empty.
  std::function<void(TrayButton Button)> MouseDown;
  std::function<void(TrayButton Button)> MouseUp;
  std::function<void()> DblClick;  // of either button, after the down and up of its first click

  // Takes what the system sends for the icon: the number of a mouse message (513 to 518) in place
  // of a horizontal position, in twips. `twipsPerPixel` is above 0. The number is rounded to the
  // nearest integer; any other number raises nothing. To be fed from the icon alone: a mouse
  // moving over the window 514 pixels from its left edge looks the same.
  void HandleCallback(double x, double twipsPerPixel);

  // The number that HandleCallback last found, 0 before and for what is no 32-bit number.
  [[nodiscard]] std::int32_t lastMessage() const { return lastMessage_; }

 private:
  void FillRecord();
  void Raise(IconMouseMessage message) const;

  NotificationArea& area_;
  bool isVisible_ = false;
  IconHandle icon_ = 0;
  std::string tooltip_;  // with a NUL at its end; empty until it is set
  NotifyIconRecord record_;
  std::int32_t lastMessage_ = 0;
  // Shared with a running HandleCallback, which may outlive this object.
  std::shared_ptr<bool> busy_ = std::make_shared<bool>(false);
};

}  // namespace tidewarden
