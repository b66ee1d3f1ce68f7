/// Names that the copy of a drawing adds: of namespaces that nobody declared, and ids.
#pragma once

#include <QSet>
#include <QString>

class QXmlStreamAttributes;
class QXmlStreamWriter;

namespace shapedocument::drawing {

class SourceNames
{
public:
    /// Declares what the element that out has begun uses without a declaration. Roots without names, and links in
    /// drawings that forgot theirs, are meant as everybody reads them; other names are of nothing that is painted, but
    /// the renderer would refuse the drawing.
    void Declare(QStringView element, const QXmlStreamAttributes& attributes, bool root, QXmlStreamWriter& out);
    /// Of the root's name, as "svg:".
    const QString& Prefix() const { return m_prefix; }

private:
    QString m_prefix;
    QSet<QString> m_declared{"xml", "xmlns"};
};

/// What the value of an attribute becomes: that of a prefix's declaration which is no address, for which the renderer
/// would refuse the whole drawing, becomes one. Links stay links; svg names the drawing's own elements and stays wrong.
QString DeclaredAddress(const QString& attribute, const QString& address);

/// What an id can begin with that none of the drawing's ids begins with.
QString UnusedIdBegin(const QByteArray& drawing);

} // namespace shapedocument::drawing
