/// What a document's texts ask for and this machine, or the layout letter by letter, cannot give.
#pragma once

#include "shapedocument_export.h"
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class CShapeList;
class CShapeText;
class QFile;

namespace shapedocument {

/// Gathers texts, and tells each kind of trouble once, in a line.
class SHAPEDOCUMENT_EXPORT TextFindings
{
public:
    void Add(const QString& family, const QString& text);
    void Add(CShapeText& text);
    /// The texts of the document, members included.
    void Add(CShapeList& document);
    /// The texts of a list stream that begins where the file stands, and stays there: versions 0 and 1 come back as
    /// vectors, which tell no font.
    void AddRecords(QFile& file, int version);

    /// A line for each kind of trouble, none without.
    QStringList Lines() const;

private:
    QMap<QString, QSet<char32_t>> m_letters; ///< by family
};

} // namespace shapedocument
