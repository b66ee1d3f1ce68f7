#include "Escaped.h"

namespace {

bool Steers(char32_t letter)
{
    switch (QChar::category(letter)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString Escape(char32_t letter)
{
    constexpr char32_t kTwoDigits = 0x100;
    switch (letter) {
    case U'\n':
        return "\\n";
    case U'\r':
        return "\\r";
    case U'\t':
        return "\\t";
    default:
        return letter < kTwoDigits ? QString("\\x%1").arg(uint(letter), 2, 16, QChar('0'))
                                   : QString("\\u%1").arg(uint(letter), 4, 16, QChar('0'));
    }
}

} // namespace

QString Escaped(const QString& text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const char32_t letter = pair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode();
        if (Steers(letter))
            escaped += Escape(letter);
        else
            escaped += QStringView(text).mid(i, pair ? 2 : 1);
        i += pair;
    }
    return escaped;
}
