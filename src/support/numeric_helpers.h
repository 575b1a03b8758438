// SPDX-License-Identifier: GPL-2.0-or-later
// Small helpers of dialogs: key filters of numeric boxes, numbers as text, the manual, references, the selection tool.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/form.h"
#include "platform/spatial_reference.h"

namespace tessarine::MyGeneralOperations {

/// The key filter of a box for a real number: digits, "," and "-" pass, "." only where the text that results is a
/// number; a refused key becomes 0.
void CheckNumericReal(std::int32_t& key_code, const TextBox& text_box);
/// The same without "-".
void CheckNumericRealPositive(std::int32_t& key_code, const TextBox& text_box);

/// Up to 15 decimals without trailing zeros or a trailing point.
[[nodiscard]] std::string TrimZerosAndDecimals(double number, bool use_thousands);

/// Opens a file with its default viewer, or says that it is missing.
void OpenDoc(const std::string& path);

/// True when both are the same reference with the same precision, or both are nothing.
[[nodiscard]] bool CompareSpatialReferences(const SpatialReferenceRef& first, const SpatialReferenceRef& second);

/// Makes the host's element selection tool current, where the host has one.
void EnableSelectTool(const std::shared_ptr<IApplication>& application);

}  // namespace tessarine::MyGeneralOperations
