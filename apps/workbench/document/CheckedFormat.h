/// Documents held against their format before they are read.
#pragma once

#include "document/DocumentFile.h"

/// How the file is to be read, every byte of it held against the format: the library reads a stream that ends early as
/// far as it goes, without a word. Throws shapedocument::Failure with the first fault. Cost: O(bytes).
shapedocument::StreamFormat CheckedFormat(const QString& path);
