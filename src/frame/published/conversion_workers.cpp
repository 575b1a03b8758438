// SPDX-License-Identifier: GPL-2.0-or-later
// The eight workers: each is the common run with its own row.
#include "conversion/modCreateVertices.h"
#include "platform/at_hand.h"
#include "platform/host.h"
#include "support/output_chooser.h"
#include "support/progress_text.h"

namespace tessarine::modCreateVertices {
namespace {

// Kind and dataset are those that a dialog left in the extension.
std::string Work(std::int32_t option, const std::string& path, const std::shared_ptr<clsExtension>& extension,
                 ConversionChoices choices, const std::shared_ptr<IApplication>& application, bool show_progress) {
  RunContext context = HostContext();
  choices.output = MyGeneralOperations::RememberedPlaceAt(path, *Require(extension, "clsExtension"));
  return RunConversion(context, *FindRun(option), choices, application,
                       show_progress ? ProgressShown::Yes : ProgressShown::No);
}

}  // namespace

std::string ConvertToVertices(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                              bool all_records, const std::string& path,
                              const std::shared_ptr<IApplication>& application,
                              const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(1, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string ConvertToLabelPoints(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                                 bool all_records, const std::string& path,
                                 const std::shared_ptr<IApplication>& application,
                                 const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(2, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string ConvertToCentroids(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                               bool all_records, const std::string& path,
                               const std::shared_ptr<IApplication>& application,
                               const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(4, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string ConvertToSphericalCentroid(const std::shared_ptr<IFeatureLayer>& layer,
                                       const std::shared_ptr<VarArray>& fields, bool all_records,
                                       const std::string& path, const std::shared_ptr<IApplication>& application,
                                       const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(8, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string PolylinesToPolygons(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                                bool all_records, const std::string& path,
                                const std::shared_ptr<IApplication>& application,
                                const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(16, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string PolygonsToPolylines(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                                bool all_records, const std::string& path,
                                const std::shared_ptr<IApplication>& application,
                                const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(32, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string SplitMultipart(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                           bool all_records, const std::string& path, const std::shared_ptr<IApplication>& application,
                           const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(64, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string JoinFeatures(const std::shared_ptr<IFeatureLayer>& layer, const std::shared_ptr<VarArray>& fields,
                         bool all_records, const std::string& path, const std::shared_ptr<IApplication>& application,
                         const std::shared_ptr<clsExtension>& extension, bool show_progress, bool) {
  return Work(128, path, extension, {layer, fields, all_records, {}}, application, show_progress);
}

std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total) {
  return MyGeneralOperations::CalcTimeLeft(prefix, start, done, total);
}

}  // namespace tessarine::modCreateVertices

namespace tessarine::MyGeneralOperations {

std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total) {
  return CalcTimeLeft(prefix, static_cast<double>(SecondsBetween(start, ClockAtHand().Now())), done, total);
}

}  // namespace tessarine::MyGeneralOperations
