/// The parts of a picture's rows that are burned, made on several cores.
#pragma once

#include "cores/OrderedWork.h"
#include "machine/Engraving.h"
#include "machine/PictureRows.h"

#include <functional>
#include <span>

namespace shapedocument {

/// Calls take on the calling thread with every row from the top, also with rows without spans. Neighbouring dots whose
/// greys span no more than options.greyStep become one span with the grey in their middle; with options.dither the dots
/// are dithered before. The rows are the same on any number of threads. Cost: O(dots), with memory for some 50,000 dots
/// or three rows a thread, and for one row where rows are very long.
void ForEachRowOf(const PictureRows& rows, const EngraveOptions& options,
                  const std::function<void(size_t row, std::span<const EngraveSpan> spans)>& take,
                  size_t threads = CoreCount());

} // namespace shapedocument
