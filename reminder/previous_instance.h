// Port: whether this copy of the program is the only one of the user's login session.
#pragma once

namespace tidewarden {

class PreviousInstance {
 public:
  virtual ~PreviousInstance() = default;

  // Claims to be the only copy; true when it is, or when that cannot be found out. Of two copies
  // that claim at the same moment exactly one is told so. The claim holds until Release or until
  // the process ends, however it ends.
  [[nodiscard]] virtual bool Claim() = 0;

  // Gives the claim up.
  virtual void Release() = 0;

  // True while another copy holds the claim; false, too, when that cannot be found out. Claims
  // nothing, so that a copy that starts at this moment is not told that another one runs.
  [[nodiscard]] virtual bool IsClaimedByAnother() = 0;
};

}  // namespace tidewarden
