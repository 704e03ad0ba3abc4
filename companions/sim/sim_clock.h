// The device's time: seconds of simulated time since the device was first used in the process,
// running `speed` times as fast as the wall clock.
#pragma once

#include <chrono>

namespace zqsim {

class DeviceClock {
 public:
  explicit DeviceClock(double speed)
      : origin_(std::chrono::steady_clock::now()),
        systemOrigin_(std::chrono::system_clock::now()),
        speed_(speed) {}
  double now() const { return seconds(std::chrono::steady_clock::now() - origin_) * speed_; }
  double speed() const { return speed_; }
  // The wall-clock moment at which simulated time reaches `tau`.
  std::chrono::steady_clock::time_point wallAt(double tau) const {
    const double wall = tau / speed_;
    if (wall > 1e9) return std::chrono::steady_clock::time_point::max();
    return origin_ + std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                         std::chrono::duration<double>(wall));
  }
  // Simulated time of a moment of the system's calendar clock, in seconds since 1970.
  double fromSystemSeconds(double unixSeconds) const {
    return (unixSeconds - seconds(systemOrigin_.time_since_epoch())) * speed_;
  }

 private:
  template <class D>
  static double seconds(D d) {
    return std::chrono::duration<double>(d).count();
  }
  std::chrono::steady_clock::time_point origin_;
  std::chrono::system_clock::time_point systemOrigin_;
  double speed_;
};

}  // namespace zqsim
