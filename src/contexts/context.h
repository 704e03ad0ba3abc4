// A context names the system a task belongs to. Tasks hold their context; the manager keeps
// one live context per name.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/platform.h"
#include "status/status.h"

namespace zqvorexRedir {

class IContext {
 public:
  virtual ~IContext() = default;
  virtual const std::string& getName() const = 0;
};

class Context final : public IContext {
 public:
  explicit Context(std::string name) : name_(std::move(name)) {}
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;
  const std::string& getName() const override { return name_; }

 private:
  std::string name_;
};

class IContextManager {
 public:
  virtual ~IContextManager() = default;
  // The live context of that name, made when there is none; empty on a failed status.
  virtual std::shared_ptr<IContext> getContext(std::string_view name, zqerr_Status* status) = 0;
};

// The hash of a context name: a byte-wise multiplicative hash, then the 64-bit mix.
uint64_t contextNameHash(std::string_view name);

class ContextManager final : public IContextManager {
 public:
  ContextManager();
  ContextManager(const ContextManager&) = delete;
  ContextManager& operator=(const ContextManager&) = delete;
  std::shared_ptr<IContext> getContext(std::string_view name, zqerr_Status* status) override;

 private:
  struct NameHash {
    size_t operator()(const std::string& name) const { return static_cast<size_t>(contextNameHash(name)); }
  };

  zqplatform::SlimLock lock_;
  std::unordered_map<std::string, std::weak_ptr<Context>, NameHash> contexts_;
  std::shared_ptr<Context> defaultContext_;  // the empty name's context lives as long as the manager
};

}  // namespace zqvorexRedir
