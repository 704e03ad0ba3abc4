// The toggles of this library: the settings accessor with its one toggle store, product word
// "zqvorex", company "Torvane". The plug-in selector reads "DebugSession" from it.
#pragma once

#include <memory>

#include "toggles/runtime_toggles.h"

namespace nZQCAI100 {

using Toggles = runtime_toggles::iRuntimeToggles<bool, bool, 6>;

class FeatureToggles : public runtime_toggles::SystemSettingsAccessor {
 public:
  // Throws zqerr::Exception when `status` has failed, unless an exception is in flight.
  explicit FeatureToggles(zqerr::FixedStatus* status);
  FeatureToggles(const FeatureToggles&) = delete;
  FeatureToggles& operator=(const FeatureToggles&) = delete;

  Toggles& toggles() { return toggles_; }

 private:
  runtime_toggles::RuntimeToggles<bool, bool, 6> toggles_;
};

// The store of `settings`, sharing its ownership.
inline std::shared_ptr<Toggles> togglesOf(const std::shared_ptr<FeatureToggles>& settings) {
  return settings ? std::shared_ptr<Toggles>(settings, &settings->toggles()) : nullptr;
}

}  // namespace nZQCAI100
