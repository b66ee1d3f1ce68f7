/// Reads the texts of a list stream without making shapes.
#pragma once

#include "check/StreamCheck.h"

namespace shapedocument {

/// A text as its record holds it.
struct StoredText
{
    QString family; ///< of its font
    QString text;   ///< lines separated by line feeds
};

/// The text records of the list stream at offset in their order, members of groups and arrays included, as far as the
/// stream is intact. For documents of versions 0 and 1, whose texts are read as vectors, which have neither font nor
/// letters. Cost: O(bytes).
SHAPEDOCUMENT_EXPORT std::vector<StoredText> StoredTexts(Bytes file, int64_t offset, int version);

} // namespace shapedocument
