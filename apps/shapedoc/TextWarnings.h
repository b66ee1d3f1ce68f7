/// What a document's texts ask for and this machine, or the layout letter by letter, cannot give.
#pragma once

#include <QMap>
#include <QSet>
#include <QString>

class CShapeList;
class QFile;

/// Gathers texts and tells each kind of trouble once, in a line.
class TextWarnings
{
public:
    void Add(const QString& family, const QString& text);
    /// The texts of the document, members included.
    void Add(CShapeList& document);
    /// The texts of a list stream that begins where the file stands, and stays there: versions 0 and 1 come back as
    /// vectors, which tell no font.
    void AddRecords(QFile& file, int version);

    /// Lines of warning on standard error, none without trouble.
    void Tell() const;

private:
    QMap<QString, QSet<char32_t>> m_letters; ///< by family
};
