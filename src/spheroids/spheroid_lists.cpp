// SPDX-License-Identifier: GPL-2.0-or-later
#include "spheroids/spheroid_lists.h"

namespace tessarine {

std::shared_ptr<VarArray> SpheroidRow::Make(const std::string& name, double semi_major_axis, double semi_minor_axis,
                                            const std::string& text,
                                            const std::shared_ptr<tessarine::Spheroid>& spheroid) {
  auto row = std::make_shared<VarArray>(std::initializer_list<Variant>{name, semi_major_axis, semi_minor_axis, text});
  if (spheroid) row->Add(spheroid);
  return row;
}

std::shared_ptr<VarArray> SpheroidLists::Make(const SpheroidNames& custom, const SpheroidNames& planets,
                                              const SpheroidNames& earth) {
  return std::make_shared<VarArray>(
      std::initializer_list<Variant>{custom.rows, custom.names, planets.rows, planets.names, earth.rows, earth.names});
}

std::shared_ptr<VarArray> SpheroidDialogInput::Make(const std::shared_ptr<IApplication>& application,
                                                    const std::shared_ptr<clsExtension>& extension,
                                                    const std::string& name, double semi_major_axis,
                                                    double semi_minor_axis) {
  return std::make_shared<VarArray>(
      std::initializer_list<Variant>{application, extension, name, semi_major_axis, semi_minor_axis});
}

}  // namespace tessarine
