/// Names that the copy of a drawing adds: namespaces that are used without a declaration, and ids.
#pragma once

#include <QSet>
#include <QString>

class QXmlStreamAttributes;
class QXmlStreamWriter;

namespace shapedocument::drawing {

class SourceNames
{
public:
    /// Declares the namespaces that the element just started on out uses without a declaration. A root without one gets
    /// that of drawings, and links get theirs. Other prefixes get a made-up namespace: nothing with them is painted,
    /// but the renderer would refuse the drawing.
    void Declare(QStringView element, const QXmlStreamAttributes& attributes, bool root, QXmlStreamWriter& out);
    /// Of the root's name, as "svg:".
    const QString& Prefix() const { return m_prefix; }

private:
    QString m_prefix;
    QSet<QString> m_declared{"xml", "xmlns"};
};

/// What an id can begin with that none of the drawing's ids begins with.
QString UnusedIdBegin(const QByteArray& drawing);

} // namespace shapedocument::drawing
