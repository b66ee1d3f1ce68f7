#include "svg/SourceNames.h"

#include <QXmlStreamWriter>

namespace shapedocument::drawing {

namespace {

const QString kDeclaration = "xmlns:";

QString PrefixOf(QStringView name)
{
    return name.left(std::max<qsizetype>(name.indexOf(u':'), 0)).toString();
}

} // namespace

void SourceNames::Declare(QStringView element, const QXmlStreamAttributes& attributes, bool root, QXmlStreamWriter& out)
{
    QSet<QString> used{PrefixOf(element)};
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QStringView name = attribute.qualifiedName();
        if (name.startsWith(kDeclaration))
            m_declared << name.mid(kDeclaration.size()).toString();
        else if (name.contains(u':'))
            used << PrefixOf(name);
    }
    if (root) {
        m_prefix = element.left(element.indexOf(u':') + 1).toString();
        if (m_prefix.isEmpty() && !attributes.hasAttribute("xmlns"))
            out.writeAttribute("xmlns", "http://www.w3.org/2000/svg");
        if (!m_declared.contains("xlink"))
            out.writeAttribute("xmlns:xlink", "http://www.w3.org/1999/xlink");
        m_declared << "xlink";
    }
    for (const QString& prefix : used)
        if (!prefix.isEmpty() && !m_declared.contains(prefix))
            out.writeAttribute(kDeclaration + prefix, "urn:undeclared:" + prefix);
}

QString UnusedIdBegin(const QByteArray& drawing)
{
    QByteArray begin = "text-";
    while (drawing.contains(begin))
        begin += '-';
    return QString::fromLatin1(begin);
}

} // namespace shapedocument::drawing
