#include "toggles/feature_toggles.h"

namespace nZQCAI100 {

FeatureToggles::FeatureToggles(zqerr::FixedStatus* status)
    : toggles_("zqvorex", "features.ini", "Torvane", this, status) {}

}  // namespace nZQCAI100
