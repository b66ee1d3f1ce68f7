/// How files of documents are read and written.
#pragma once

#include "shapemodel.h"

#include "document/DocumentFile.h"

#include <optional>

namespace capi {

/// What is asked for. Throws Refusal.
sm_document_options StreamOptionsOf(const sm_document_options* given);

/// The version that is asked for; nothing: the present one.
std::optional<int> VersionOf(const sm_document_options& options);

shapedocument::StreamFormat StreamFormatOf(const sm_document_options& options);

/// Throws Refusal.
shapedocument::Target TargetOf(const char* file, const sm_document_options& options);

} // namespace capi
