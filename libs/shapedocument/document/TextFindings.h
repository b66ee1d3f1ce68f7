/// Finds the fonts and letters of a document's texts that this computer does not have, or that the layout letter by
/// letter cannot set.
#pragma once

#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class CShapeList;
class CShapeText;
class QFile;

namespace shapedocument {

/// Collects texts and reports each kind of finding in one line.
class SHAPEDOCUMENT_EXPORT TextFindings
{
public:
    /// Adds a text in the font of that family. Cost: O(letters).
    void Add(const QString& family, const QString& text);
    /// Adds a text shape's font and text.
    void Add(CShapeText& text);
    /// Adds the texts of the document, members included. Cost: O(shapes + letters).
    void Add(CShapeList& document);
    /// Adds the texts of the list stream at the file's position, which is restored. Needed for versions 0 and 1, whose
    /// texts are read as vectors without a font. Cost: O(bytes).
    void AddRecords(QFile& file, int version);

    /// One line for each kind of finding. Throws Stopped where progress returns false. Cost: a check of each font, and
    /// of each letter in it.
    QStringList Lines(const WorkProgress& progress = {}) const;

private:
    SHAPEDOCUMENT_NO_EXPORT size_t LetterCount() const;

    QMap<QString, QSet<char32_t>> m_letters; ///< by family
};

} // namespace shapedocument
