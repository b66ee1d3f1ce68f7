/// The parts of a picture's rows that are burned, made on several cores.
#pragma once

#include "machine/Engraving.h"
#include "machine/PictureRows.h"

#include <functional>
#include <span>

namespace shapedocument {

/// Calls take on the calling thread with every row from the top, also with rows without spans. Neighbouring dots whose
/// greys span no more than options.greyStep become one span with the grey in their middle; with options.dither the dots
/// are dithered before. The rows are the same on any number of threads. Cost: O(dots), with memory for some 500,000
/// dots, or for one row where it is longer.
/// threads: at most, the calling one included; 0: as many as save time, which is one for small pictures.
void ForEachRowOf(const PictureRows& rows, const EngraveOptions& options,
                  const std::function<void(size_t row, std::span<const EngraveSpan> spans)>& take, size_t threads = 0);

} // namespace shapedocument
