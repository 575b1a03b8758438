// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/temporary_layers.h"

namespace tessarine {
namespace {

// They are worked on in a GeoPackage, and take what it takes.
constexpr Format kTemporaryLayers{.name = "Temporary layer",
                                  .category = "Temporary layer Feature Class",
                                  .ending = "Temporary layer",
                                  .driver = "Memory",
                                  .kind = 64,
                                  .container = true,
                                  .writable = true,
                                  .multiple_shapes = true,
                                  .server = true,
                                  .class_names = kAnyName,
                                  .field_names = kAnyName};

WorkspaceMaker& Maker() {
  static WorkspaceMaker maker;
  return maker;
}

}  // namespace

void OfferTemporaryLayers(WorkspaceMaker make) { Maker() = std::move(make); }

const Format* TemporaryLayers() { return Maker() ? &kTemporaryLayers : nullptr; }

std::shared_ptr<IWorkspaceFactory> CreateTemporaryWorkspaceFactory() { return Maker() ? Maker()() : nullptr; }

}  // namespace tessarine
