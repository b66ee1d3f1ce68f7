#include "svg/SourceNames.h"

#include <QRegularExpression>
#include <QXmlStreamWriter>

namespace shapedocument::drawing {

namespace {

const QString kDeclaration = "xmlns:", kUndeclared = "urn:undeclared:", kLinkPrefix = "xlink";
const QString kLinks = "http://www.w3.org/1999/xlink";

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
        if (!m_declared.contains(kLinkPrefix))
            out.writeAttribute(kDeclaration + kLinkPrefix, kLinks);
        m_declared << kLinkPrefix;
    }
    for (const QString& prefix : used)
        if (!prefix.isEmpty() && !m_declared.contains(prefix))
            out.writeAttribute(kDeclaration + prefix, kUndeclared + prefix);
}

QString DeclaredAddress(const QString& attribute, const QString& address)
{
    static const QRegularExpression plainAddress("^[-\\w.~:/?@!$&'()*+,;=]*(#[-\\w.~:/?@!$&'()*+,;=]*)?$");
    const QString prefix = attribute.mid(kDeclaration.size());
    if (!attribute.startsWith(kDeclaration) || prefix == u"svg" || plainAddress.match(address).hasMatch())
        return address;
    return prefix == kLinkPrefix ? kLinks : kUndeclared + prefix;
}

QString UnusedIdBegin(const QByteArray& drawing, QByteArray begin)
{
    while (drawing.contains(begin))
        begin += '-';
    return QString::fromLatin1(begin);
}

} // namespace shapedocument::drawing
