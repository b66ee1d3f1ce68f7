#include "svg/StyleText.h"

#include <QRegularExpression>

namespace shapedocument::drawing {

QString FullOpacity(const QString& value)
{
    static const QRegularExpression number("^\\s*([-+]?[0-9]*\\.?[0-9]+(?:[eE][-+]?[0-9]+)?)");
    const QRegularExpressionMatch match = number.match(value);
    return match.hasMatch() && match.captured(1).toDouble() > 0 ? QString("1") : value;
}

QString WithFullOpacity(const QString& declarations)
{
    if (!declarations.contains(QLatin1String("opacity")))
        return declarations;
    static const QRegularExpression opacity("(?<![-\\w])opacity\\s*:\\s*([-+0-9.eE]+%?)");
    QString full;
    qsizetype done = 0;
    for (auto matches = opacity.globalMatch(declarations); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        full += QStringView(declarations).mid(done, match.capturedStart(1) - done);
        full += FullOpacity(match.captured(1));
        done = match.capturedEnd(1);
    }
    full += QStringView(declarations).mid(done);
    return full;
}

QStringList ReferencesIn(const QString& text)
{
    QStringList ids;
    if (!text.contains(QLatin1String("url(")))
        return ids;
    static const QRegularExpression reference("url\\(\\s*['\"]?#([^'\")\\s]+)");
    for (auto matches = reference.globalMatch(text); matches.hasNext();)
        ids << matches.next().captured(1);
    return ids;
}

QStringList ValuesOf(const QString& property, const QString& declarations)
{
    QStringList values;
    if (!declarations.contains(property))
        return values;
    const QRegularExpression declaration("(?<![-\\w])" + QRegularExpression::escape(property) + "\\s*:\\s*([^;}]*)");
    for (auto matches = declaration.globalMatch(declarations); matches.hasNext();)
        values << matches.next().captured(1).trimmed();
    return values;
}

QStringList FamiliesIn(const QString& declarations)
{
    QStringList families = ValuesOf("font-family", declarations);
    static const QRegularExpression afterSize("[0-9.]+(?:[a-z]+|%)(?:\\s*/\\s*\\S+)?\\s+(\\S.*)$");
    for (const QString& font : ValuesOf("font", declarations))
        if (const QRegularExpressionMatch match = afterSize.match(font); match.hasMatch())
            families << match.captured(1);
    return families;
}

} // namespace shapedocument::drawing
