/// Reads the attributes of a painted page's elements.
#pragma once

#include <QByteArray>
#include <QRgb>
#include <QStringView>

#include <string_view>
#include <vector>

class QXmlStreamAttributes;

namespace shapedocument::drawing {

/// What an element declares, as Latin-1: in a style attribute, or as cairo from 1.18 on writes it, in one for each.
class Style
{
public:
    explicit Style(const QXmlStreamAttributes& attributes);

    /// The value of a declaration; empty if it is not there.
    std::string_view operator[](std::string_view name) const;
    double Number(std::string_view name, double otherwise) const;

private:
    QByteArray m_text;
};

/// rgb(r%,g%,b%) as 0xRRGGBB; black for anything else.
QRgb ColorOf(std::string_view text);

/// The numbers that text begins with.
std::vector<double> NumbersIn(std::string_view text);

/// The id of "url(#id)" and "#id"; empty for none.
QStringView IdIn(QStringView reference);

} // namespace shapedocument::drawing
