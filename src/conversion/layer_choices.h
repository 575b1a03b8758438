// SPDX-License-Identifier: GPL-2.0-or-later
// What the dialogs of this folder share: lists of layers, of fields and counts of records.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/field_choice.h"
#include "platform/arrays.h"
#include "platform/form.h"
#include "platform/map.h"
#include "platform/tool.h"
#include "session/clsExtension.h"
#include "support/output_row.h"

namespace tessarine {

/// Lists the valid layers and returns the line of the preferred one, 0 without it. The line counts all layers, so an
/// invalid one shifts the lines against the layers.
std::int32_t ListLayers(const VarArray& layers, const std::string& preferred, ListBox& list);

/// The layer at a line of the list, null where there is none.
[[nodiscard]] std::shared_ptr<IFeatureLayer> LayerAt(const std::shared_ptr<VarArray>& layers, std::int32_t line);

/// Lists the fields that an output can carry over by their aliases and returns them, line by line.
std::vector<FieldRef> ListFields(const IFeatureLayer& layer, StoredMeasures measures, ListBox& list);

/// The fields of the selected lines, in the order of the list.
[[nodiscard]] std::shared_ptr<VarArray> SelectedFieldsOf(const ListBox& list, const std::vector<FieldRef>& fields);

/// Selects every line, or none, and scrolls back to the first.
void SelectAllLines(ListBox& list, bool selected);

/// What the button beside the fields says: what pressing it would do next.
[[nodiscard]] const char* SelectFieldsCaption(bool all_selected);

/// Leaves the layer, its records with their count, and the output in the extension for the run.
void LeaveChoices(clsExtension& extension, const std::shared_ptr<IFeatureLayer>& layer, ToolRecords records,
                  const MyGeneralOperations::OutputRow& output);

/// Leaves no layer and no fields in the extension, for a dialog that is given up.
void ForgetLayerAndFields(clsExtension& extension);

/// The selection of a layer, null when it can't be had.
[[nodiscard]] std::shared_ptr<ISelectionSet> SelectionOf(const std::shared_ptr<IFeatureLayer>& layer);

/// Sets a pair of options "all records" and "selected records" from the layer's counts: the selected ones are the
/// choice where there are any.
void ShowRecordChoice(const std::shared_ptr<IFeatureLayer>& layer, std::string_view all_label,
                      std::string_view selected_label, OptionButton& all, OptionButton& selected);

}  // namespace tessarine
