#include "output_stream.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zqsim {

namespace {
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
}

OutputStream::OutputStream(std::vector<double> before, uint64_t capacity, bool regenerate)
    : before_(std::move(before)), capacity_(std::max<uint64_t>(capacity, 1)), regenerate_(regenerate) {
  data_.assign(before_.size(), std::vector<double>(capacity_, 0.0));
}

uint64_t OutputStream::write(const double* data, uint64_t count, uint64_t first, bool byScan, double now) {
  std::lock_guard<std::mutex> guard(mutex_);
  const size_t channels = data_.size();
  // Regeneration plays the written samples over and over; a write while it runs replaces them
  // with a new waveform. Without it, a write appends behind what is still to be generated.
  if (regenerate_ && timeline_ && first == 0) written_ = 0;
  const uint64_t at = written_;
  uint64_t room = capacity_;
  if (regenerate_) {
    room = capacity_ - std::min(written_, capacity_);
  } else {
    const uint64_t taken = timeline_ ? std::min(written_, ticksBy(now)) : 0;
    room = capacity_ - (written_ - taken);
  }
  const uint64_t n = std::min(count - std::min(first, count), room);
  for (uint64_t k = 0; k < n; ++k) {
    const uint64_t source = first + k;
    for (size_t c = 0; c < channels; ++c)
      data_[c][(at + k) % capacity_] = data[byScan ? source * channels + c : c * count + source];
  }
  written_ += n;
  return n;
}

void OutputStream::start(std::shared_ptr<Timeline> timeline) {
  std::lock_guard<std::mutex> guard(mutex_);
  timeline_ = std::move(timeline);
}

std::shared_ptr<OutputStream> OutputStream::restarted() {
  std::lock_guard<std::mutex> guard(mutex_);
  if (!timeline_) return shared_from_this();
  auto next = std::make_shared<OutputStream>(before_, capacity_, regenerate_);
  if (regenerate_) {
    next->data_ = data_;
    next->written_ = written_;
  }
  return next;
}

void OutputStream::stop(double at) {
  std::lock_guard<std::mutex> guard(mutex_);
  stoppedAt_ = std::min(stoppedAt_, at);
}

uint64_t OutputStream::written() const {
  std::lock_guard<std::mutex> guard(mutex_);
  return written_;
}

bool OutputStream::everStarted() const {
  std::lock_guard<std::mutex> guard(mutex_);
  return timeline_ != nullptr;
}

uint64_t OutputStream::space(double now) const {
  std::lock_guard<std::mutex> guard(mutex_);
  if (regenerate_) return timeline_ ? capacity_ : capacity_ - std::min(written_, capacity_);
  const uint64_t taken = timeline_ ? std::min(written_, ticksBy(now)) : 0;
  return capacity_ - (written_ - taken);
}

uint64_t OutputStream::ticksBy(double tau) const {
  if (!timeline_) return 0;
  return timeline_->availableAt(std::min(tau, stoppedAt_));
}

uint64_t OutputStream::generated(double tau) const {
  std::lock_guard<std::mutex> guard(mutex_);
  const uint64_t ticks = ticksBy(tau);
  return regenerate_ ? ticks : std::min(ticks, written_);
}

double OutputStream::underflowTime() const {
  std::lock_guard<std::mutex> guard(mutex_);
  if (regenerate_ || !timeline_ || !timeline_->ready()) return kNaN;
  const TimelineConfig& c = timeline_->config();
  if (c.finite && written_ >= c.samples) return kNaN;
  const double at = timeline_->timeOf(written_);
  return at < stoppedAt_ ? at : kNaN;
}

double OutputStream::sampleLocked(uint32_t channel, uint64_t index) const {
  if (written_ == 0) return before_[channel];
  if (regenerate_) return data_[channel][index % std::min(written_, capacity_)];
  if (index >= written_) index = written_ - 1;  // an underflow holds the last value
  return data_[channel][index % capacity_];
}

double OutputStream::value(uint32_t channel, double tau) const {
  std::lock_guard<std::mutex> guard(mutex_);
  if (!timeline_ || !timeline_->ready()) return before_.at(channel);
  const uint64_t ticks = timeline_->availableAt(std::min(tau, stoppedAt_));
  if (ticks == 0) return before_.at(channel);
  return sampleLocked(channel, ticks - 1);
}

}  // namespace zqsim
