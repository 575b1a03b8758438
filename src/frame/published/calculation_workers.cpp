// SPDX-License-Identifier: GPL-2.0-or-later
// The calculation, and its loops over the records of one shape each, in the context of the process.
#include "calculator/modCalcGeometry.h"
#include "calculator/record_loop.h"
#include "platform/host.h"
#include "platform/trap.h"

namespace tessarine::modCalcGeometry {

std::string CalcGeometry(const std::shared_ptr<VarArray>& options, const std::shared_ptr<IApplication>& application,
                         bool, bool) {
  RunContext context = HostContext();
  return CalcGeometry(context, options, application);
}

std::string CalcGeometryPoint(const std::shared_ptr<VarArray>& options,
                              const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                              std::int32_t& record_count, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunLoop(context, "CalcGeometryPoint", options, application, indexes, record_count, show_progress);
}

std::string CalcGeometryMultipoint(const std::shared_ptr<VarArray>& options,
                                   const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                                   std::int32_t& record_count, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunLoop(context, "CalcGeometryMultipoint", options, application, indexes, record_count, show_progress);
}

std::string CalcGeometryPolyline(const std::shared_ptr<VarArray>& options,
                                 const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                                 std::int32_t& record_count, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunLoop(context, "CalcGeometryPolyline", options, application, indexes, record_count, show_progress);
}

std::string CalcGeometryPolygon(const std::shared_ptr<VarArray>& options,
                                const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                                std::int32_t& record_count, bool show_progress, bool) {
  RunContext context = HostContext();
  return RunLoop(context, "CalcGeometryPolygon", options, application, indexes, record_count, show_progress);
}

std::shared_ptr<clsExtension> GetExtension(const std::shared_ptr<IApplication>& application) {
  return Trap("GetExtension", [&] { return FindExtension(application); });
}

}  // namespace tessarine::modCalcGeometry
