#include "channel.h"

#include "sim_values.h"
#include "text_util.h"

namespace zqsim {

std::string Channel::physicalText() const {
  if (kind != val::kDI && kind != val::kDO) return physical.empty() ? "" : physical.front().text();
  std::vector<std::string> names;
  for (const PhysicalName& p : physical) names.push_back(p.text());
  return joinList(names, ",");
}

int32_t Channel::i32(int32_t id, int32_t otherwise) const {
  const auto it = store.find(id);
  return it == store.end() ? otherwise : it->second.asI32();
}

uint32_t Channel::u32(int32_t id, uint32_t otherwise) const {
  const auto it = store.find(id);
  return it == store.end() ? otherwise : it->second.asU32();
}

double Channel::f64(int32_t id, double otherwise) const {
  const auto it = store.find(id);
  return it == store.end() ? otherwise : it->second.asNumber();
}

bool Channel::flag(int32_t id, bool otherwise) const {
  const auto it = store.find(id);
  return it == store.end() ? otherwise : it->second.asBool();
}

std::string Channel::text(int32_t id) const {
  const auto it = store.find(id);
  return it == store.end() ? std::string() : it->second.text;
}

const std::vector<double>& Channel::reals(int32_t id) const {
  static const auto* none = new std::vector<double>;
  const auto it = store.find(id);
  return it == store.end() ? *none : it->second.reals;
}

std::string Channel::resource() const {
  switch (kind) {
    case val::kAI:
      return "ai";
    case val::kAO:
      return "ao";
    case val::kDI:
      return "di";
    case val::kDO:
      return "do";
    default:
      break;
  }
  return physical.empty() ? "ctr" : "ctr" + std::to_string(physical.front().index);
}

}  // namespace zqsim
