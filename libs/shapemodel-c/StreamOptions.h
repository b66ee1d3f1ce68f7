/// How files of documents are read and written.
#pragma once

#include "shapemodel.h"

#include "document/DocumentFile.h"

#include <optional>

namespace capi {

sm_document_options DefaultStreamOptions();

/// The version that is asked for. Throws Refusal.
std::optional<int> VersionOf(const sm_document_options* given);

/// Throws Refusal.
shapedocument::StreamFormat StreamFormatOf(const sm_document_options* given);

/// Throws Refusal.
shapedocument::Target TargetOf(const char* file, const sm_document_options* options);

} // namespace capi
