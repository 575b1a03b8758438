// SPDX-License-Identifier: GPL-2.0-or-later
// The building of polygons with its choices as arguments.
#include "conversion/mod_92_functions.h"
#include "platform/host.h"
#include "support/output_chooser.h"

namespace tessarine::mod_92_functions {

std::string orlBuildPolygons(const std::shared_ptr<IFeatureLayer>& line_layer, bool all_lines, double cluster_tolerance,
                             bool transfer_labels, bool use_all_label_points, bool use_first_label_point,
                             const std::shared_ptr<IFeatureLayer>& point_layer, const std::shared_ptr<VarArray>& fields,
                             const std::string& path, bool, const ObjectRef&,
                             const std::shared_ptr<IMxDocument>& document,
                             const std::shared_ptr<IApplication>& application,
                             const std::shared_ptr<clsExtension>& extension) {
  RunContext context = HostContext();
  return BuildPolygons(context,
                       {line_layer, all_lines, cluster_tolerance, transfer_labels ? point_layer : nullptr,
                        use_all_label_points, use_first_label_point, fields,
                        MyGeneralOperations::RememberedPlaceAt(path, *Require(extension, "clsExtension"))},
                       document, application);
}

}  // namespace tessarine::mod_92_functions
