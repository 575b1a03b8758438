// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/output_wishes.h"

#include "hosts/terminal/passwords.h"
#include "hosts/terminal/refusal.h"
#include "outputs/brought_output.h"

namespace tessarine {
namespace {

constexpr std::int32_t kWgs84 = 4326;

CLI::Option* AddOption(CLI::App& command, OutputOptions& options, const char* help) {
  return command.add_option("--to", options.to, help)->type_name("REFERENCE");
}

}  // namespace

void AddReferenceOption(CLI::App& command, OutputOptions& options) {
  AddOption(
      command, options,
      "Bring the output to this spatial reference: EPSG:3035, ESRI:54009, well-known text, a PROJ string or a .prj "
      "file. Measures stay those in the reference of the source");
}

void AddRefusedReferenceOption(CLI::App& command, OutputOptions& options) {
  // It is there to say why it can't be.
  AddOption(command, options, "")->group("");
}

void RefuseReference(const OutputOptions& options, const std::string& why) {
  if (options.to.empty()) return;
  throw Refusal("--to: " + why);
}

void RefuseUnreachableReference(const NamedOutput& output, const SpatialReferenceRef& own, const Envelope& extent) {
  if (!output.wished || !BringsElsewhere(own, output.wished)) return;
  const Format* format = output.place.format;
  const bool is_wgs84 = output.wished->IsEqual(*SpatialReferenceEnvironment::CreateGeographicCoordinateSystem(kWgs84));
  if (format != nullptr && format->degrees && !is_wgs84) {
    throw Refusal("--to: '" + std::string(format->name) + "' keeps longitudes and latitudes on WGS 84 alone, not '" +
                  output.wished->Name() + "': name another format, or leave --to out.");
  }
  try {
    (void)WayTo(output.wished, own, extent);
  } catch (const Fault& fault) {
    throw Refusal("--to: " + fault.Description());
  }
}

OutputWishes WishesFor(const NamedOutput& output, const CommonOptions& options) {
  return {output.wished, output.stamp, WithoutPasswords(options.command_line), TESSARINE_VERSION};
}

}  // namespace tessarine
