/// Names that the copy of a drawing adds: declarations of undeclared namespaces, and ids.
#pragma once

#include <QSet>
#include <QString>

class QXmlStreamAttributes;
class QXmlStreamWriter;

namespace shapedocument::drawing {

class SourceNames
{
public:
    /// Declares the namespaces that the element just started on out uses without a declaration. A root without a
    /// namespace gets that of SVG, and links get that of XLink. Other prefixes get a made-up namespace: nothing with
    /// them is painted, but without one the renderer would refuse the drawing.
    void Declare(QStringView element, const QXmlStreamAttributes& attributes, bool root, QXmlStreamWriter& out);
    /// The prefix of the root's name, as "svg:".
    const QString& Prefix() const { return m_prefix; }

private:
    QString m_prefix;
    QSet<QString> m_declared{"xml", "xmlns"};
};

/// What the value of an attribute becomes: that of a prefix's declaration which is no address, for which the renderer
/// would refuse the whole drawing, becomes one. Links stay links; svg names the drawing's own elements and stays wrong.
QString DeclaredAddress(const QString& attribute, const QString& address);

/// A start for ids and classes that none of the drawing's has: begin, and as many "-" as it takes.
QString UnusedIdBegin(const QByteArray& drawing, QByteArray begin);

} // namespace shapedocument::drawing
