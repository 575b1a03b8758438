// SPDX-License-Identifier: GPL-2.0-or-later
// What every host owes the suite, told once and run on each of them.
//
// A host's tests supply a `ContractHost`, which does by the host's own means what a user does in it, and instantiate
// `HostContract` with it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "platform/application.h"
#include "platform/host.h"

namespace tessarine::testing {

class ContractHost {
 public:
  virtual ~ContractHost() = default;

  [[nodiscard]] virtual std::shared_ptr<IApplication> Application() const = 0;
  [[nodiscard]] std::shared_ptr<IMxDocument> Document() const { return Cast<IMxDocument>(Application()->Document()); }
  [[nodiscard]] std::shared_ptr<IMap> Map() const { return Document()->FocusMap(); }

  /// Shows the only layer of a file below all others, in the group where one is named.
  virtual void OpenLayer(const std::string& file, const std::string& name, const std::string& group) = 0;
  virtual void OpenTable(const std::string& file, const std::string& name) = 0;
  virtual void SelectRows(const std::string& layer, const std::vector<std::int64_t>& oids) = 0;
  virtual void SetFieldInfo(const std::string& layer, const std::string& field, const FieldInfo& info) = 0;
  /// Makes a layer current in the table of contents.
  virtual void MakeCurrent(const std::string& layer) = 0;
  virtual void SetMapReference(const std::string& text) = 0;
  /// Draws a graphic element of the kind ("marker", "line", "polygon", "rectangle", "text") above all others. Texts
  /// have no colour.
  virtual void Draw(const std::string& kind, const GeometryRef& shape, const std::string& color) = 0;
  virtual void Save(const std::string& native_path) = 0;
  /// Opens the saved document again, as a fresh start of the host would.
  virtual void Reopen() = 0;
  [[nodiscard]] virtual bool IsDirty() const = 0;

  [[nodiscard]] virtual std::shared_ptr<IFeatureLayer> NewLayer() const = 0;
  [[nodiscard]] virtual std::shared_ptr<ISimpleRenderer> NewRenderer() const = 0;
  /// The colour of a layer that is drawn with one symbol.
  [[nodiscard]] virtual std::string ColorOf(const std::shared_ptr<IFeatureLayer>& layer) const = 0;
};

/// One host with one format of data.
struct HostCase {
  const char* name;
  std::unique_ptr<ContractHost> (*make)();
  const char* driver;
  const char* ending;
};
inline void PrintTo(const HostCase& row, std::ostream* out) { *out << row.name << row.ending; }

class HostContract : public ::testing::TestWithParam<HostCase> {
 protected:
  void SetUp() override;

  /// A layer with the fields "name" and "size" and the rows a to d of sizes 1 to 4, at (0 0), (5 5), (9 9) and without
  /// a shape.
  void OpenTowns(const std::string& name = "towns", const std::string& group = "");
  [[nodiscard]] std::string FileOf(const std::string& name) const { return folder_.Native(name + GetParam().ending); }
  [[nodiscard]] std::shared_ptr<IFeatureLayer> Layer(const std::string& name) const;
  [[nodiscard]] std::shared_ptr<IFeatureClass> Class(const std::string& name) const {
    return Layer(name)->FeatureClass();
  }
  /// The identifiers of the rows of these names.
  [[nodiscard]] static std::vector<std::int64_t> Oids(IFeatureClass& features, const std::string& names);
  [[nodiscard]] static std::string Names(ICursor& cursor, std::int32_t field);

  TestHost process_host_;
  TemporaryFolder folder_;
  std::unique_ptr<ContractHost> host_;
};

}  // namespace tessarine::testing
