// The plug-in selector's view of the toggle store: a toggle that cannot be read is its
// default, and the reason is dropped.
#pragma once

#include <memory>
#include <string>

#include "selection/itoggle_reader.h"
#include "toggles/feature_toggles.h"

namespace nZQCAI100 {

class ToggleReader final : public zqvorexRedir::IToggleReader {
 public:
  explicit ToggleReader(std::shared_ptr<Toggles> toggles) : toggles_(std::move(toggles)) {}

  bool readToggle(std::string_view name, bool defaultValue) override {
    bool value = defaultValue;
    if (!toggles_) return value;
    std::string text(name);  // the store reads a name up to its terminator
    zqerr::FixedStatus own = zqerr::makeFixedStatus();
    toggles_->getToggle(text, &defaultValue, &value, &own);
    return value;
  }

 private:
  std::shared_ptr<Toggles> toggles_;
};

}  // namespace nZQCAI100
