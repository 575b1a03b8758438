#include "platform/trap.h"

namespace tessarine {
namespace {

FaultReporter g_reporter = nullptr;

}  // namespace

std::string SourceFileName(std::string_view path) {
  constexpr std::string_view kRoot = "src/";
  const auto at = path.rfind(kRoot);
  return std::string(at == std::string_view::npos ? path : path.substr(at + kRoot.size()));
}

Fault CurrentFault() {
  try {
    throw;
  } catch (const Fault& fault) {
    return fault;
  } catch (const std::exception& error) {
    return {kInvalidCall, "Tessarine", error.what()};
  } catch (...) {
    return {kInvalidCall, "Tessarine", "Unknown error."};
  }
}

FaultReporter SetFaultReporter(FaultReporter reporter) { return std::exchange(g_reporter, reporter); }

namespace detail {

void ReportCurrentFault(std::string_view procedure, bool top, const std::source_location& where) {
  const Fault fault = CurrentFault();
  if (g_reporter != nullptr) g_reporter({std::string(procedure) + " ", SourceFileName(where.file_name()), top}, fault);
  if (!top) throw fault;
}

}  // namespace detail
}  // namespace tessarine
