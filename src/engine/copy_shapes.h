// SPDX-License-Identifier: GPL-2.0-or-later
// The shapes of a copy: which type its layer gets, and what has to be known of the source's shapes for that.
#pragma once

#include <ogrsf_frmts.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/ogr_class.h"
#include "outputs/formats.h"
#include "platform/run_journal.h"
#include "platform/run_stop.h"

namespace tessarine::engine {

/// Identifiers in order; null means all records.
using ChosenOids = std::optional<std::vector<std::int64_t>>;

[[nodiscard]] bool IsChosen(const ChosenOids& chosen, std::int64_t oid);

/// What a walk over the chosen records shows.
struct ShapeFacts {
  bool single = false, multiple = false;  ///< shapes of one part by their type, and of several
  bool z = false, m = false, curves = false;
  std::vector<std::int64_t> oids;     ///< in the order of the records
  Envelope extent;                    ///< empty where there are no shapes
  std::int64_t least = 0, most = -1;  ///< identifiers
  bool repeated = false;              ///< an identifier stands there twice
};
/// Polls the stop for each record.
[[nodiscard]] ShapeFacts LookAtShapes(const std::shared_ptr<OgrClass>& source, const ChosenOids& chosen,
                                      const std::function<void()>& poll = EndIfStopped);

/// The type of a layer that holds these shapes in this format.
[[nodiscard]] OGRwkbGeometryType LayerTypeFor(OGRwkbGeometryType declared, esriGeometryType kind,
                                              const ShapeFacts& facts, const Format& format);

/// The shape of a record as a layer of this type takes it: a single one becomes a multiple one where only those are
/// held, and where all shapes have heights or measures, those that have none get 0, which the notes tell.
[[nodiscard]] std::unique_ptr<OGRGeometry> FitShape(std::unique_ptr<OGRGeometry> shape, OGRwkbGeometryType type,
                                                    const Format& format, std::int64_t oid, RunJournal& notes);

/// What a layer keeps of a shape besides its plain lines and positions.
struct KeptOfShapes {
  bool curves = false, z = false, m = false;
};
[[nodiscard]] KeptOfShapes WhatIsKept(OGRLayer& layer, const Format& format);
/// The type without the curves, heights and measures that aren't kept.
[[nodiscard]] OGRwkbGeometryType KeptType(OGRwkbGeometryType type, const KeptOfShapes& kept);

/// What the new layer can't keep of the shapes of the source, sentence by sentence.
[[nodiscard]] std::vector<std::string> ForetoldOfShapes(OGRwkbGeometryType declared, const ShapeFacts& facts,
                                                        const KeptOfShapes& kept);

/// Notes heights and measures that were lost on the way though the layer is said to keep them, or that the format made
/// up.
void NoteHeights(const OGRGeometry& meant, const OGRGeometry& written, const ShapeFacts& facts,
                 const KeptOfShapes& kept, std::int64_t oid, RunJournal& notes);

}  // namespace tessarine::engine
