// Stand-ins in memory for the ports of the reminder window.
#pragma once

#include <vector>

#include "core/random_numbers.h"
#include "reminder/editor_window.h"
#include "reminder/previous_instance.h"

namespace tidewarden {

class MemoryPreviousInstance : public PreviousInstance {
 public:
  bool anotherRuns = false;
  bool claimed = false;

  [[nodiscard]] bool Claim() override { return claimed = !anotherRuns; }
  void Release() override { claimed = false; }
};

// Gives out `draws` in turn, from the start again when they are used up.
class MemoryRandomNumbers : public RandomNumbers {
 public:
  std::vector<double> draws{0.0};
  std::vector<unsigned> seeds;

  void Seed(unsigned seed) override { seeds.push_back(seed); }
  [[nodiscard]] double Draw() override { return draws.at(next_++ % draws.size()); }

 private:
  std::size_t next_ = 0;
};

class MemoryEditorWindow : public EditorWindow {
 public:
  bool loaded = false;
  bool entryUnderWay = false;
  std::vector<EditorRequest> requests;
  int unloads = 0;

  [[nodiscard]] bool IsLoaded() const override { return loaded; }
  [[nodiscard]] bool IsEntryUnderWay() const override { return entryUnderWay; }
  void Open(const EditorRequest& request) override {
    loaded = true;
    requests.push_back(request);
  }
  void Unload() override {
    loaded = false;
    ++unloads;
  }
};

}  // namespace tidewarden
