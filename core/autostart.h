// Port: whether the reminder program starts by itself when the user logs in.
//
// What counts is the place in which the system looks at the next login, not a setting: every call
// reads or changes that place itself, because other programs and the user change it too.
#pragma once

#include "core/status.h"

namespace tidewarden {

class Autostart {
 public:
  virtual ~Autostart() = default;

  // True when the entry of the next login names this reminder program, by the full path of its file
  // or by a name under which the system finds it. False when there is no entry, when it names only
  // another program, when it has been switched off by other means, and when that cannot be found
  // out. Conditions that an entry may set besides (on Linux TryExec, OnlyShowIn and NotShowIn) are
  // not looked at.
  [[nodiscard]] virtual bool IsOn() = 0;

  // Makes it so, for this user only. Nothing is changed when it is so already. What else an
  // existing entry says is kept when it is switched on, and goes with the entry when it is
  // switched off. On failure the entry is as it was.
  virtual Status Set(bool on) = 0;
};

}  // namespace tidewarden
