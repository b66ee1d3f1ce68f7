/// Finds where a record may start among damaged or misplaced bytes.
#pragma once

#include "check/StreamCheck.h"

namespace shapedocument {

/// Whether the bytes at offset look like the start of a shape that draws something: a known tag, likely first fields,
/// and a test of the rest as far as possible without walking it.
bool LooksLikeShape(Bytes bytes, int64_t offset, int version);

/// Whether the bytes end at offset, or another record may begin there.
bool LooksLikeNextShape(Bytes bytes, int64_t offset);

/// Whether the count of an array's cells and the first cell are at offset.
bool LooksLikeCells(Bytes bytes, int64_t offset);

} // namespace shapedocument
