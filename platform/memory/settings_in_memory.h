// Settings that are read from another store and written to memory: a run on them leaves the other
// store as it is.
#pragma once

#include <string>
#include <string_view>

#include "core/settings_store.h"
#include "platform/memory/memory_ports.h"

namespace tidewarden {

class SettingsInMemory : public SettingsStore {
 public:
  // `store` outlives this object and is never written.
  explicit SettingsInMemory(SettingsStore& store) : store_(store) {}

  // What was written or deleted here counts, else what the store holds.
  Status Read(std::string_view section, std::string_view name, std::string& value) override {
    if (changed_.Has(section, name)) return changed_.Read(section, name, value);
    return store_.Read(section, name, value);
  }

  Status Write(std::string_view section, std::string_view name, std::string_view value) override {
    return changed_.Write(section, name, value);
  }

  // A deleted value reads like a missing one.
  Status Delete(std::string_view section, std::string_view name) override {
    return changed_.Write(section, name, "");
  }

 private:
  SettingsStore& store_;
  MemorySettingsStore changed_;
};

}  // namespace tidewarden
