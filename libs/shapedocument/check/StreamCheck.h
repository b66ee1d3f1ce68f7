/// Checks a document's bytes without making shapes.
#pragma once

#include "shapedocument_export.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace shapedocument {

/// The letters with which document files start.
inline constexpr char kFileMagic[] = "SHAPEDOC";
/// Those letters, and an int32, the version of the list stream behind it.
inline constexpr int kFileHeaderBytes = 12;

/// A whole file in memory. The caller owns it and must keep it as long as a result refers to it.
using Bytes = std::span<const unsigned char>;

/// Called many times a second with the offset of the present byte, which also decreases in searches. May throw, which
/// ends the work.
using ByteWatch = std::function<void(int64_t at)>;

/// The first thing that is wrong.
struct Fault
{
    int64_t offset;   ///< in the file
    QString path;     ///< for instance "list > shape 12 (group) > member 3 (text) > family"
    QString reason;   ///< for instance "length 80 is outside 0 to 63"
    bool cut = false; ///< the bytes end before the field does
};

/// Where the list stream starts, as far as the header tells.
struct StreamStart
{
    int64_t offset = 0;         ///< of the list stream
    int version = -1;           ///< -1: a bare stream, or an unknown version
    std::optional<Fault> fault; ///< of the header

    /// Whether there is no header.
    bool Bare() const { return offset == 0; }
};

/// A file with most of the letters that documents begin with counts as a document with a damaged header. Cost: O(1).
SHAPEDOCUMENT_EXPORT StreamStart FindStream(Bytes file);

/// The result of checking a list stream.
struct CheckResult
{
    std::optional<Fault> fault; ///< none: every byte matches the format
    int64_t shapes = 0;         ///< whole shapes before the fault, members of groups and arrays included
};

/// Walks the list stream at offset, which must end where the bytes end, by the layout of the document version (0 to
/// SHAPE_DOCUMENT_VERSION). Linear in the bytes; allocates nothing for counts in the stream.
SHAPEDOCUMENT_EXPORT CheckResult CheckStream(Bytes file, int64_t offset, int version, const ByteWatch& watch = {});

/// The versions whose layout fits a bare stream, which does not contain its version.
struct SHAPEDOCUMENT_EXPORT FittingVersions
{
    std::vector<int> versions; ///< those without a fault, ascending
    int nearest = 0;           ///< if there are none: the version in which the walk gets furthest
    CheckResult result;        ///< of the last clean version, else of the nearest

    /// "0, 3 to 6" of the versions.
    QString Text() const;
};

/// Walks the list stream at offset in every version whose layout differs; linear in the bytes.
SHAPEDOCUMENT_EXPORT FittingVersions FindVersions(Bytes file, int64_t offset, const ByteWatch& watch = {});

} // namespace shapedocument
