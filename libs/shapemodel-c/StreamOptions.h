/// The options of reading and writing documents.
#pragma once

#include "shapemodel.h"

#include "document/DocumentFile.h"

#include <optional>

namespace capi {

/// The caller's options, or the defaults for null. Throws Refusal.
sm_document_options StreamOptionsOf(const sm_document_options* given);

/// The version asked for; nothing: the present one.
std::optional<int> VersionOf(const sm_document_options& options);

shapedocument::StreamFormat StreamFormatOf(const sm_document_options& options);

/// Throws Refusal.
shapedocument::Target TargetOf(const char* file, const sm_document_options& options);

} // namespace capi
