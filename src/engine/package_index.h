// SPDX-License-Identifier: GPL-2.0-or-later
// The spatial index of a GeoPackage layer, made at once when its rows are there.
//
// Row by row, each shape is led down the tree to its place, and nodes that are full are split; that costs more than
// all else of a conversion. Of shapes that are all known, the tree is packed from its leaves (sort-tile-recursive:
// Leutenegger, Lopez and Edgington, 1997), and its nodes are written as SQLite keeps them:
//
//   NAME_node    node number (the root is node 1), and a blob of fixed size: the depth of the tree (2 bytes, of the
//                root alone), the number of cells (2 bytes), and the cells: a number (8 bytes; of a row in leaves, else
//                of a node) and least and greatest x, least and greatest y (4 bytes each: floats, rounded outwards).
//                The highest byte of each number stands first.
//   NAME_rowid   row, and the leaf that it is in
//   NAME_parent  node, and the node that it hangs from
#pragma once

#include <filesystem>
#include <string>

namespace tessarine::engine {

/// Gives the layer an index. Fault where it can't be written.
void IndexPackageLayer(const std::filesystem::path& file, const std::string& layer);

}  // namespace tessarine::engine
