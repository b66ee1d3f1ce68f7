/// The texts that a list stream holds, without making shapes of them.
#pragma once

#include "check/StreamCheck.h"

namespace shapedocument {

/// A text as its record holds it.
struct StoredText
{
    QString family; ///< of the font that it asks for
    QString text;   ///< lines separated by line feeds
};

/// The text records of the list stream at offset in their order, members of groups and arrays included, as far as the
/// stream is intact. Documents of versions 0 and 1 are read into vectors, which tell neither font nor letters.
/// Cost: O(bytes).
SHAPEDOCUMENT_EXPORT std::vector<StoredText> StoredTexts(Bytes file, int64_t offset, int version);

} // namespace shapedocument
