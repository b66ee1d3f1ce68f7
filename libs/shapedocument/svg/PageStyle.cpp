#include "svg/PageStyle.h"

#include "svg/PathText.h"

#include <QColor>
#include <QXmlStreamAttributes>

#include <algorithm>

namespace shapedocument::drawing {

Style::Style(const QXmlStreamAttributes& attributes) : m_text(attributes.value("style").toLatin1())
{
    if (!m_text.isEmpty())
        return;
    for (const QXmlStreamAttribute& attribute : attributes)
        if (attribute.name() != u"d")
            m_text += attribute.name().toLatin1() + ':' + attribute.value().toLatin1() + ';';
}

std::string_view Style::operator[](std::string_view name) const
{
    std::string_view rest(m_text.constData(), static_cast<size_t>(m_text.size()));
    while (!rest.empty()) {
        std::string_view one = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(one.size() + 1, rest.size()));
        one.remove_prefix(std::min(one.find_first_not_of(' '), one.size()));
        if (one.size() > name.size() && one.starts_with(name) && one[name.size()] == ':')
            return one.substr(name.size() + 1);
    }
    return {};
}

double Style::Number(std::string_view name, double otherwise) const
{
    std::string_view text = (*this)[name];
    return text.empty() ? otherwise : ReadNumber(text);
}

QRgb ColorOf(std::string_view text)
{
    constexpr std::string_view kBegin = "rgb(";
    constexpr double kPercent = 100;
    if (!text.starts_with(kBegin))
        return 0;
    text.remove_prefix(kBegin.size());
    float part[3];
    for (float& share : part) {
        share = static_cast<float>(std::clamp(ReadNumber(text) / kPercent, 0.0, 1.0));
        text.remove_prefix(text.starts_with('%'));
    }
    return QColor::fromRgbF(part[0], part[1], part[2]).rgb() & RGB_MASK;
}

std::vector<double> NumbersIn(std::string_view text)
{
    std::vector<double> numbers;
    while (!text.empty()) {
        const size_t before = text.size();
        const double number = ReadNumber(text);
        if (text.size() == before)
            break;
        numbers.push_back(number);
    }
    return numbers;
}

QStringView IdIn(QStringView reference)
{
    const qsizetype begin = reference.indexOf(u'#') + 1, end = reference.indexOf(u')');
    return begin == 0 ? QStringView() : reference.mid(begin, end < 0 ? -1 : end - begin);
}

} // namespace shapedocument::drawing
