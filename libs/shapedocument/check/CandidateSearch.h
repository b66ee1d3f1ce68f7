/// Finding where a record may begin among bytes that are damaged or misplaced.
#pragma once

#include "check/StreamCheck.h"

namespace shapedocument {

/// Whether at offset stands what the beginning of a shape that draws something looks like: known tag, likely head, and
/// what can be told of the rest without walking it.
bool LooksLikeShape(Bytes bytes, int64_t offset, int version);

/// Whether the bytes end at offset, or another record may begin there.
bool LooksLikeNextShape(Bytes bytes, int64_t offset);

/// Whether at offset stands the count of an array's cells and the first of them.
bool LooksLikeCells(Bytes bytes, int64_t offset);

} // namespace shapedocument
