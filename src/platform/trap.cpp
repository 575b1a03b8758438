#include "platform/trap.h"

namespace tessarine {
namespace {

FaultReporter g_reporter = nullptr;

// The file's name with its folder below the source root.
std::string SourceName(std::string_view file) {
  constexpr std::string_view kRoot = "src/";
  const auto at = file.rfind(kRoot);
  return std::string(at == std::string_view::npos ? file : file.substr(at + kRoot.size()));
}

}  // namespace

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
  if (g_reporter != nullptr) g_reporter({std::string(procedure) + " ", SourceName(where.file_name()), top}, fault);
  if (!top) throw fault;
}

}  // namespace detail
}  // namespace tessarine
