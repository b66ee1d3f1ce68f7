/// Document files: a header (FileHeader.h), then the list stream; or the bare list stream.
///
/// **Threads**, for all of this library. Its functions may be called on several threads at once, each for documents of
/// its own, under the conditions that CShape states for the shapes. Some calls start threads for their own sums, which
/// end before the call returns or throws; they touch neither shapes nor the host. Progress, visits and everything else
/// that is handed in is called on the calling thread, except where it says otherwise. Results do not depend on the
/// number of threads.
#pragma once

#include "check/StreamCheck.h"
#include "document/OutputFile.h"
#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include "list/ShapeListOwner.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QFile;

namespace shapedocument {

/// A list that owns its shapes.
using Document = ShapeListOwner;

/// Whether documents have the file header, and the version with which a stream without one is read.
struct StreamFormat
{
    bool bare = false;                    ///< no header
    int version = SHAPE_DOCUMENT_VERSION; ///< of a stream without one
};

/// An empty document. Cost: O(1).
SHAPEDOCUMENT_EXPORT Document NewDocument();

/// A document as it was read.
struct OpenedDocument
{
    Document shapes;      ///< what it holds
    int version = 0;      ///< with which the stream was read
    QStringList warnings; ///< one line each: replaced fonts, letters that cannot be laid out correctly
};

/// Reads a regular file or the standard input ("-"). Throws Failure, and Stopped where progress returns false. Cost:
/// O(bytes), and a check of the fonts and letters of the texts.
SHAPEDOCUMENT_EXPORT OpenedDocument ReadDocument(const QString& file, const StreamFormat& format,
                                                 const WorkProgress& progress = {});

/// Reads from the file's position to its end. name is for messages. Throws Failure and Stopped. Cost: as above.
SHAPEDOCUMENT_EXPORT OpenedDocument ReadDocument(QFile& file, const QString& name, const StreamFormat& format,
                                                 const WorkProgress& progress = {});

/// Reads the bytes of a file. name is for messages. Throws Failure and Stopped. Cost: as above, and a temporary file.
SHAPEDOCUMENT_EXPORT OpenedDocument ReadDocument(Bytes bytes, const QString& name, const StreamFormat& format,
                                                 const WorkProgress& progress = {});

/// The bytes that WriteDocument writes. name is for messages. Throws Failure and Stopped. Cost: O(bytes), and a
/// temporary file.
SHAPEDOCUMENT_EXPORT QByteArray DocumentBytes(CShapeList& document, const QString& name, const StreamFormat& format,
                                              const WorkProgress& progress = {});

/// Always writes the present version, also if a bare stream was read with an older one. Throws Failure, and Stopped
/// where progress returns false; the file is then unchanged. Cost: O(bytes), and one wait for the disk, during which
/// progress is not called.
SHAPEDOCUMENT_EXPORT void WriteDocument(const Target& target, CShapeList& document, const StreamFormat& format,
                                        const WorkProgress& progress = {});

} // namespace shapedocument
