// Stand-ins in memory for the ports of the reminder window.
#pragma once

#include <vector>

#include "platform/memory/memory_random_numbers.h"
#include "reminder/editor_window.h"
#include "reminder/previous_instance.h"

namespace tidewarden {

class MemoryPreviousInstance : public PreviousInstance {
 public:
  bool anotherRuns = false;
  bool claimed = false;
  int claims = 0;

  [[nodiscard]] bool Claim() override {
    ++claims;
    return claimed = !anotherRuns;
  }
  void Release() override { claimed = false; }
  [[nodiscard]] bool IsClaimedByAnother() override { return anotherRuns; }
};

class MemoryEditorWindow : public EditorWindow {
 public:
  bool loaded = false;
  bool entryUnderWay = false;
  std::vector<EditorRequest> requests;
  int unloads = 0;
  int reloads = 0;

  [[nodiscard]] bool IsLoaded() const override { return loaded; }
  [[nodiscard]] bool IsEntryUnderWay() const override { return entryUnderWay; }
  void Open(const EditorRequest& request) override {
    loaded = true;
    requests.push_back(request);
  }
  void Reload() override { ++reloads; }
  void Unload() override {
    loaded = false;
    ++unloads;
  }
};

}  // namespace tidewarden
