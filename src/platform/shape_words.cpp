// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/shape_words.h"

namespace tessarine {

std::string ShapeWord(esriGeometryType type, const std::string& otherwise) {
  switch (type) {
    case esriGeometryPoint:
      return "point";
    case esriGeometryMultipoint:
      return "multipoint";
    case esriGeometryPolyline:
      return "polyline";
    case esriGeometryPolygon:
      return "polygon";
    default:
      return otherwise;
  }
}

}  // namespace tessarine
