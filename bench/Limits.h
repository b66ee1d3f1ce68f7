/// Limits that memory and the file system set: every byte moved once, memory asked for once. No code can do with less.
#pragma once

#include "Drawings.h"
#include "Goals.h"

#include <QString>

#include <cstddef>

namespace bench {

/// Bytes of a point in memory: two doubles and the type.
constexpr size_t kPointBytes = 17;

/// The side with its memory taken from the system anew for each run; the system clears each page at its first use.
Side InFreshMemory(Side side);

/// A block of memory for each shape of a document, as large as a vector shape and its points. Each is written once,
/// and each byte of the file at the path is read once, from memory.
Side FillBlocks(const QString& path, size_t shapes, size_t pointsPerShape);

/// The bytes of the file at from, ready in memory, written by one call to a new file.
Side WriteOnce(const QString& from, const QString& to);

/// The same, after each point of the shapes has been read.
Side ReadAndWriteOnce(CShapeList& list, const QString& from, const QString& to);

/// What of the shapes is read and written once, in place.
enum class Moved
{
    Points,
    PointsAndPaths ///< 16 bytes of each point, 24 of each element
};
Side AddInPlace(CShapeList& list, Moved moved);

/// As many elements as the painter paths of polylines have, written once into a new block for each shape.
Side WriteElements(CShapeList& list);

/// As many bytes as the points and types of the shapes have, copied into a new block and an object for each shape.
Side CopyShapes(CShapeList& list);

} // namespace bench
