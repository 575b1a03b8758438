// SPDX-License-Identifier: GPL-2.0-or-later
// The parameters of a tool in the toolbox, made from its ToolSpec, and what somebody chose of them.
#pragma once

#include <qgsprocessingalgorithm.h>
#include <qgsprocessingcontext.h>
#include <qgsprocessingparameters.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/tool.h"

namespace tessarine::qgis {

/// "INPUT" for the source and "LABEL_FIELDS" for "label-fields": what scripts write.
[[nodiscard]] QString NameOf(const ToolParameter& parameter);
/// "Label fields", what people read.
[[nodiscard]] QString LabelOf(const ToolParameter& parameter);

using Definitions = std::vector<std::unique_ptr<QgsProcessingParameterDefinition>>;

/// All of them, the output last. A tool that writes into its source gets an output, too: in the toolbox it works on a
/// copy.
[[nodiscard]] Definitions DefinitionsOf(const ToolSpec& spec);

/// Where the new class goes.
inline constexpr const char* kOutput = "OUTPUT";

/// What was chosen, but for layers and output. A fault of number 5 tells a person what can't be understood.
[[nodiscard]] Arguments ReadArguments(const ToolSpec& spec, const QgsProcessingAlgorithm& algorithm,
                                      const QVariantMap& parameters, QgsProcessingContext& context);

/// The sentence with the parameters as people see them.
[[nodiscard]] QString ObjectionText(const ToolSpec& spec, const Objection& objection);

}  // namespace tessarine::qgis
