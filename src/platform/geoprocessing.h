// SPDX-License-Identifier: GPL-2.0-or-later
// What the host's geoprocessing framework asks of a factory of tools.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/data.h"
#include "platform/object.h"

namespace tessarine {

/// The name object of something that the framework can open.
class IName : public virtual Object {
 public:
  [[nodiscard]] virtual std::string NameString() const = 0;
};

/// The name of a tool.
class IGPName : public virtual IName {
 public:
  [[nodiscard]] virtual std::string Name() const = 0;
};

/// A tool.
class IGPFunction : public virtual Object {
 public:
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IName> FullName() const = 0;
};

/// A walk over the names of tools; null at the end.
class IEnumGPName : public virtual Object {
 public:
  virtual void Reset() = 0;
  [[nodiscard]] virtual std::shared_ptr<IGPName> Next() = 0;
};

/// A walk over the environments of tools.
class IEnumGPEnvironment : public virtual Object {};

/// A list of names and the walk over it.
class EnumGPName final : public IEnumGPName {
 public:
  void Add(std::shared_ptr<IGPName> name) { names_.push_back(std::move(name)); }
  void Reset() override { next_ = 0; }
  [[nodiscard]] std::shared_ptr<IGPName> Next() override { return next_ < names_.size() ? names_[next_++] : nullptr; }

 private:
  std::vector<std::shared_ptr<IGPName>> names_;
  std::size_t next_ = 0;
};

class IGPFunctionFactory : public virtual Object {
 public:
  [[nodiscard]] virtual std::shared_ptr<UID> CLSID() const = 0;
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string Alias() const = 0;
  /// Null for a tool that the factory doesn't make.
  [[nodiscard]] virtual std::shared_ptr<IGPFunction> GetFunction(const std::string& name) const = 0;
  [[nodiscard]] virtual std::shared_ptr<IGPName> GetFunctionName(const std::string& name) const = 0;
  [[nodiscard]] virtual std::shared_ptr<IEnumGPName> GetFunctionNames() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IEnumGPEnvironment> GetFunctionEnvironments() const = 0;
};

}  // namespace tessarine
