// SPDX-License-Identifier: GPL-2.0-or-later
// Polygons from the regions that polylines bound together.
#pragma once

#include <memory>
#include <string>

#include "outputs/output_place.h"
#include "platform/application.h"
#include "platform/run_context.h"
#include "session/clsExtension.h"

namespace tessarine::mod_92_functions {

/// Builds one polygon for each region that the layer's lines bound, with `Uniq_ID` and `Area`, and returns the report
/// as RTF; an empty text when a message told that there are no lines or no regions.
///
/// Lines closer than `cluster_tolerance`, in the unit of their coordinates, count as meeting. With `transfer_labels`
/// each polygon takes the chosen fields of one point of `point_layer` that lies in it or on its boundary: the first in
/// the order of the data, or the one nearest to the polygon's centre of gravity, measured in the points' reference; of
/// two equally near ones the first. A polygon without a point is listed and keeps these fields unset. Point layer and
/// fields may be null. The output is named anew when its path is taken. No attribute of the lines is carried over.
/// The run can't be stopped. A source that can't be read or an output that can't be written ends in the fault report
/// and a report that tells why; lines and polygons that meet a fault are left out and told. Kind and feature dataset of
/// the output are those that the extension remembers. Whatever `reserved` and `unused` are, the run is the same.
[[nodiscard]] std::string orlBuildPolygons(
    const std::shared_ptr<IFeatureLayer>& line_layer, bool all_lines, double cluster_tolerance, bool transfer_labels,
    bool use_all_label_points, bool use_first_label_point, const std::shared_ptr<IFeatureLayer>& point_layer,
    const std::shared_ptr<VarArray>& fields, const std::string& path, bool reserved, const ObjectRef& unused,
    const std::shared_ptr<IMxDocument>& document, const std::shared_ptr<IApplication>& application,
    const std::shared_ptr<clsExtension>& extension);

/// What is chosen for such a run.
struct BuildChoices {
  std::shared_ptr<IFeatureLayer> lines;
  bool all_lines = true;
  double cluster_tolerance = 0.0;              ///< in the unit of the lines' coordinates
  std::shared_ptr<IFeatureLayer> labels = {};  ///< points whose attributes the polygons take; null for none
  bool all_labels = true;
  bool first_label = false;               ///< of several points in a polygon the first, else the nearest to its centre
  std::shared_ptr<VarArray> fields = {};  ///< of the labels
  OutputPlace output;                     ///< a name that is taken gives way to a free one
};

/// The same run, within a context.
[[nodiscard]] std::string BuildPolygons(RunContext& context, const BuildChoices& choices,
                                        const std::shared_ptr<IMxDocument>& document,
                                        const std::shared_ptr<IApplication>& application);
/// What such a run would do, as a report: nothing is written.
[[nodiscard]] std::string PlanBuildPolygons(RunContext& context, const BuildChoices& choices);
/// The place under the first free name, which such a run writes to.
[[nodiscard]] OutputPlace FreePlace(const OutputPlace& place);

}  // namespace tessarine::mod_92_functions
