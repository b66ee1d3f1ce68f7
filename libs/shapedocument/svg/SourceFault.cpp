#include "svg/SourceFault.h"

#include <QUtf8StringView>

namespace shapedocument::drawing {

namespace {

/// The reader's message for a wrong encoding, in the present language.
QString WrongEncoding()
{
    QXmlStreamReader reader(QByteArray("<a>\xff"));
    while (!reader.atEnd())
        reader.readNext();
    return reader.errorString();
}

/// Number of the first line that is not UTF-8; 0 for none.
qint64 FirstLineNotUtf8(const QByteArray& bytes)
{
    qint64 line = 1;
    for (qsizetype begin = 0; begin < bytes.size(); ++line) {
        const qsizetype found = bytes.indexOf('\n', begin), end = found < 0 ? bytes.size() : found + 1;
        if (!QUtf8StringView(bytes.constData() + begin, end - begin).isValidUtf8())
            return line;
        begin = end;
    }
    return 0;
}

} // namespace

qint64 LineOfFault(const QXmlStreamReader& reader, const QByteArray& bytes)
{
    const bool isUtf8 =
        reader.documentEncoding().isEmpty() || reader.documentEncoding().compare(u"utf-8", Qt::CaseInsensitive) == 0;
    const qint64 line = isUtf8 && reader.errorString() == WrongEncoding() ? FirstLineNotUtf8(bytes) : 0;
    return line > 0 ? line : reader.lineNumber();
}

QString UndeclaringName(const QXmlStreamAttributes& attributes)
{
    for (const QXmlStreamAttribute& attribute : attributes)
        if (attribute.qualifiedName().startsWith(u"xmlns:") && attribute.value().isEmpty())
            return attribute.qualifiedName().toString();
    return {};
}

} // namespace shapedocument::drawing
