/// Finding where a record may begin among bytes that are damaged or misplaced.
#pragma once

#include "check/StreamCheck.h"

namespace shapedocument {

/// Whether the bytes at offset look like the start of a shape that draws something: a known tag, likely first fields,
/// and what can be judged of the rest without walking it.
bool LooksLikeShape(Bytes bytes, int64_t offset, int version);

/// Whether the bytes end at offset, or another record may begin there.
bool LooksLikeNextShape(Bytes bytes, int64_t offset);

/// Whether the count of an array's cells and the first cell are at offset.
bool LooksLikeCells(Bytes bytes, int64_t offset);

} // namespace shapedocument
