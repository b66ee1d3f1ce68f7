/// The version of the document stream.
#pragma once

/// The version whose layout CShapeList::Save writes. A host stores it beside its documents and passes it to
/// CShapeList::Read; older documents are read with the version that they were written in, 0 the oldest.
inline constexpr int SHAPE_DOCUMENT_VERSION = 14;
