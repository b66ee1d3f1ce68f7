#include "job/FindingTexts.h"

#include "look/LengthUnit.h"

#include <QCoreApplication>
#include <QStringList>

#include <array>

using namespace shapedocument;

namespace {

/// The texts of a kind: its heading, and a finding, whose size is %1.
struct KindTexts
{
    const char* title;
    const char* finding;
};

constexpr std::array<KindTexts, static_cast<size_t>(FindingKind::Count_)> kKinds{{
    {QT_TRANSLATE_NOOP("FindingsList", "Contours that are not quite closed"),
     QT_TRANSLATE_NOOP("FindingsList", "open by %1")},
    {QT_TRANSLATE_NOOP("FindingsList", "Outside the bed"), QT_TRANSLATE_NOOP("FindingsList", "%1 outside")},
    {QT_TRANSLATE_NOOP("FindingsList", "Lines drawn twice (cut once)"),
     QT_TRANSLATE_NOOP("FindingsList", "%1 drawn twice")},
    {QT_TRANSLATE_NOOP("FindingsList", "Contours that cross themselves"),
     QT_TRANSLATE_NOOP("FindingsList", "crosses itself")},
    {QT_TRANSLATE_NOOP("FindingsList", "Lines shorter than the beam"), QT_TRANSLATE_NOOP("FindingsList", "%1 long")},
    {QT_TRANSLATE_NOOP("FindingsList", "Parts that the beam burns away"), QT_TRANSLATE_NOOP("FindingsList", "%1 wide")},
    {QT_TRANSLATE_NOOP("FindingsList", "Pictures coarser than the engraving"),
     QT_TRANSLATE_NOOP("FindingsList", "%1 pixels per mm")},
    {QT_TRANSLATE_NOOP("FindingsList", "Texts not as they should be"), QT_TRANSLATE_NOOP("FindingsList", "text")},
    {QT_TRANSLATE_NOOP("FindingsList", "Hidden shapes (not in the job)"), QT_TRANSLATE_NOOP("FindingsList", "hidden")},
    {QT_TRANSLATE_NOOP("FindingsList", "Locked shapes"), QT_TRANSLATE_NOOP("FindingsList", "locked")},
}};

/// Texts of the library, which are the keys of their translations.
[[maybe_unused]] constexpr std::array kLibraryWords{
    QT_TRANSLATE_NOOP("FindingsList", "fonts that are not installed are replaced"),
    QT_TRANSLATE_NOOP("FindingsList",
                      "boxes, or nothing, stand for characters that no font has or that lie beyond the first plane"),
    QT_TRANSLATE_NOOP("FindingsList", "letters are set one by one from left to right, which these need otherwise"),
    QT_TRANSLATE_NOOP("FindingsList", "white space and control characters that take no room"),
    QT_TRANSLATE_NOOP("FindingsList", "hidden picture"),
    QT_TRANSLATE_NOOP("FindingsList", "hidden vector"),
    QT_TRANSLATE_NOOP("FindingsList", "hidden text"),
    QT_TRANSLATE_NOOP("FindingsList", "hidden group"),
    QT_TRANSLATE_NOOP("FindingsList", "hidden array"),
    QT_TRANSLATE_NOOP("FindingsList", "picture"),
    QT_TRANSLATE_NOOP("FindingsList", "picture without pixels"),
    QT_TRANSLATE_NOOP("FindingsList", "vector without lines"),
    QT_TRANSLATE_NOOP("FindingsList", "text without lines"),
    QT_TRANSLATE_NOOP("FindingsList", "array without cells"),
    QT_TRANSLATE_NOOP("FindingsList", "cell without place"),
    QT_TRANSLATE_NOOP("FindingsList", "point without place"),
};

QString Translated(const char* text)
{
    return QCoreApplication::translate("FindingsList", text);
}

QString NumberOf(FindingKind kind, double size)
{
    const look::LengthUnit& unit = look::LengthUnit::Shown();
    return kind == FindingKind::CoarsePicture ? QString::number(size, 'g', 3) : unit.Number(size) + ' ' + unit.Name();
}

/// Translates further texts of the library: lines with names behind a colon.
QString Further(const QString& text)
{
    QStringList lines = text.split("; ");
    for (QString& line : lines) {
        const QString words = line.section(": ", 0, 0);
        line.replace(0, words.size(), Translated(words.toUtf8().constData()));
    }
    return lines.join("; ");
}

} // namespace

QString TitleOf(FindingKind kind)
{
    return Translated(kKinds.at(static_cast<size_t>(kind)).title);
}

QString FindingText(FindingKind kind, const Finding& finding)
{
    const look::LengthUnit& unit = look::LengthUnit::Shown();
    QString what = Translated(kKinds.at(static_cast<size_t>(kind)).finding);
    if (what.contains("%1"))
        what = what.arg(NumberOf(kind, finding.size));
    const QString told = Translated(QT_TRANSLATE_NOOP("FindingsList", "%1, at %2, %3"))
                             .arg(what, unit.Number(finding.place.x()), unit.Number(finding.place.y()));
    return finding.text.isEmpty() ? told : told + ": " + Further(finding.text);
}

QString LeftOutText(const QString& words)
{
    return Translated(words.toUtf8().constData());
}
