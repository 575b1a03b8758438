// SPDX-License-Identifier: GPL-2.0-or-later
// The eight workers: each is the common run with its own row.
#include "conversion/modCreateVertices.h"
#include "platform/host.h"
#include "support/progress_text.h"

namespace tessarine::modCreateVertices {

std::string ConvertToVertices(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                              bool all_records, const std::string& path,
                              const std::shared_ptr<IApplication>& application,
                              const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(1), layer, fields, all_records, path, application, extension, show_progress);
}

std::string ConvertToLabelPoints(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                                 bool all_records, const std::string& path,
                                 const std::shared_ptr<IApplication>& application,
                                 const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(2), layer, fields, all_records, path, application, extension, show_progress);
}

std::string ConvertToCentroids(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                               bool all_records, const std::string& path,
                               const std::shared_ptr<IApplication>& application,
                               const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(4), layer, fields, all_records, path, application, extension, show_progress);
}

std::string ConvertToSphericalCentroid(const std::shared_ptr<IFeatureLayer>& layer,
                                       const std::shared_ptr<VarArray>& fields, bool all_records,
                                       const std::string& path, const std::shared_ptr<IApplication>& application,
                                       const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(8), layer, fields, all_records, path, application, extension, show_progress);
}

std::string PolylinesToPolygons(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                                bool all_records, const std::string& path,
                                const std::shared_ptr<IApplication>& application,
                                const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(16), layer, fields, all_records, path, application, extension, show_progress);
}

std::string PolygonsToPolylines(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                                bool all_records, const std::string& path,
                                const std::shared_ptr<IApplication>& application,
                                const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(32), layer, fields, all_records, path, application, extension, show_progress);
}

std::string SplitMultipart(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                           bool all_records, const std::string& path, const std::shared_ptr<IApplication>& application,
                           const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(64), layer, fields, all_records, path, application, extension, show_progress);
}

std::string JoinFeatures(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                         bool all_records, const std::string& path, const std::shared_ptr<IApplication>& application,
                         const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunConversion(context, *FindRun(128), layer, fields, all_records, path, application, extension, show_progress);
}

std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total) {
  return MyGeneralOperations::CalcTimeLeft(prefix, start, done, total);
}

}  // namespace tessarine::modCreateVertices
