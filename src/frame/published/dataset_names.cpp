// SPDX-License-Identifier: GPL-2.0-or-later
// Free names of tables, and the pairs of fields between two classes.
#include "support/dataset_names.h"

#include "platform/fault.h"
#include "platform/free_name.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"
#include "support/attempt.h"

namespace tessarine::MyGeneralOperations {

bool CheckIfTableExists(const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name) {
  if (Attempt([&] { return workspace->OpenTable(name); })) return true;
  return Attempt([&] { return workspace->OpenFeatureClass(name); }) != nullptr;
}

std::string MakeUniqueGDBTableName(const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name) {
  return TrapHelper("MakeUniqueGDBTableName", [&] {
    return FirstFree(name, [&](const std::string& candidate) { return CheckIfTableExists(workspace, candidate); });
  });
}

std::string MakeUniquedBASEName(const std::string& path) { return aml_func_mod::MakeUniqueFilename(path); }

std::shared_ptr<VarArray> MakeFieldNameVarArray(const IClass& from_class, const IClass& to_class,
                                                const VarArray& selected_fields, bool use_array_elements) {
  return TrapHelper("MakeFieldNameVarArray", [&] {
    auto rows = std::make_shared<VarArray>();
    for (const Variant& entry : selected_fields) {
      std::string source, output;
      if (use_array_elements) {
        const auto names = entry.AsObject<StrArray>();
        source = Require(names, "IStringArray")->Element(0);
        output = names->Element(1);
      } else {
        const auto field = entry.AsObject<Field>();
        source = output = Require(field, "IField")->Name;
      }
      auto row = std::make_shared<VarArray>();
      row->Add(source);
      row->Add(from_class.FindField(source));
      row->Add(output);
      row->Add(to_class.FindField(output));
      rows->Add(row);
    }
    return rows;
  });
}

}  // namespace tessarine::MyGeneralOperations
