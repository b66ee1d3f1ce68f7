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

/// The value of an attribute in the copy. Where a prefix is declared for something that is no address, the renderer
/// would refuse the whole drawing: an address takes its place. Links stay links; svg names the drawing's own elements
/// and stays wrong. Every other value is unchanged.
QString DeclaredAddress(const QString& attribute, const QString& address);

/// A start for ids that none of the drawing's ids has.
QString UnusedIdBegin(const QByteArray& drawing);

} // namespace shapedocument::drawing
