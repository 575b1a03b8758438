// SPDX-License-Identifier: GPL-2.0-or-later
// Names by which the suite and its hosts find things of each other. They are a part of the published face: documents
// and programs that know the suite know them, so they are never changed.
#pragma once

namespace tessarine::known_ids {

/// The suite's extension, as an application keeps it.
inline constexpr const char* kSuiteExtension = "Tessarine.clsExtension";
/// The application's editor.
inline constexpr const char* kEditor = "esriEditor.Editor";
/// An extension that the suite holds from its start to its end, and never asks anything.
inline constexpr const char* kHeldExtension = "{BD6262BC-D9D4-4B93-87E0-E442702D93E6}";
/// The tool that selects graphic elements.
inline constexpr const char* kSelectElementsTool = "{C22579D1-BC17-11D0-8667-0000F8751720}";

/// Where a host tells the version of the map program that it stands for: a key and a value of the local machine's
/// registry. The value ends with a null, as texts of a registry do.
inline constexpr const char* kVersionCompany = "ESRI";
inline constexpr const char* kVersionProduct = "ArcGIS";
inline constexpr const char* kVersionKey = "Software\\ESRI\\ArcGIS";
inline constexpr const char* kVersionValue = "RealVersion";

}  // namespace tessarine::known_ids
