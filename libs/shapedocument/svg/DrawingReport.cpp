#include "svg/DrawingReport.h"

namespace shapedocument {

namespace {

struct Words
{
    const char* name;
    const char* one;
    const char* many;
};

constexpr std::array<Words, static_cast<size_t>(Departure::Count_)> kWords{{
    {"filtersIgnored", "1 filter ignored", "%1 filters ignored"},
    {"masksIgnored", "1 mask ignored", "%1 masks ignored"},
    {"flowTextsLeftOut", "1 flow text left out", "%1 flow texts left out"},
    {"textsNotWrapped", "1 text not wrapped in its shape", "%1 texts not wrapped in their shapes"},
    {"textsOnPathsLeftOut", "1 text on a path left out", "%1 texts on paths left out"},
    {"letterSettingsIgnored", "1 rotate/textLength/small-caps ignored", "%1 rotate/textLength/small-caps ignored"},
    {"textsOutlined", "1 text became outlines, from which a text shape would differ",
     "%1 texts became outlines, from which text shapes would differ"},
    {"textsOfSeveralRunsOutlined", "1 text of several runs became outlines",
     "%1 texts of several runs became outlines"},
    {"textsPaintedByReferenceOutlined", "1 text painted by reference, or beyond the first 2,000, became outlines",
     "%1 texts painted by reference, or beyond the first 2,000, became outlines"},
    {"textsSplitIntoWords", "1 text became a text for each word", "%1 texts became a text for each word"},
    {"textsBesideTheirPlaces", "1 text of uneven scale stands beside its place",
     "%1 texts of uneven scale stand beside their places"},
    {"markersLeftOut", "the markers of 1 shape left out", "the markers of %1 shapes left out"},
    {"foreignObjectsLeftOut", "1 foreign object left out", "%1 foreign objects left out"},
    {"animationsIgnored", "1 animation ignored", "%1 animations ignored"},
    {"scriptsIgnored", "1 script ignored", "%1 scripts ignored"},
    {"otherFilesLeftOut", "1 reference to another file left out", "%1 references to other files left out"},
    {"picturesLeftOut", "1 picture left out", "%1 pictures left out"},
    {"picturesNotCut", "1 picture not cut at its clip", "%1 pictures not cut at their clips"},
    {"picturesIncomplete", "1 picture incomplete, as its file ends early",
     "%1 pictures incomplete, as their files end early"},
    {"embeddedDrawings", "1 embedded drawing became a picture", "%1 embedded drawings became pictures"},
    {"dashesIgnored", "the dashes of 1 path ignored", "the dashes of %1 paths ignored"},
    {"clipsIgnored", "1 path not cut at its clip", "%1 paths not cut at their clips"},
    {"coversIgnored", "1 path may show what others hide", "%1 paths may show what others hide"},
    {"coarse", "rounded to 0.003 mm, as it reaches too far for a finer grid", ""},
    {"missing", "1 path may be missing", "%1 paths may be missing"},
    {"beyondPage", "1 shape reaches beyond the page", "%1 shapes reach beyond the page"},
    {"outOfReach", "1 path left out that is too far away", "%1 paths left out that are too far away"},
}};

} // namespace

const char* DrawingReport::NameOf(Departure kind)
{
    return kWords[static_cast<size_t>(kind)].name;
}

void DrawingReport::AddReplacedFont(const QString& family, const QString& used)
{
    if (!m_fonts.contains(std::pair(family, used)))
        m_fonts.append({family, used});
}

QString DrawingReport::Explained(const QString& words) const
{
    const QStringList lines = Lines();
    return lines.isEmpty() ? words : words + ": " + lines.join(", ");
}

QStringList DrawingReport::Lines() const
{
    QStringList lines;
    for (size_t i = 0; i < m_counts.size(); ++i) {
        if (m_counts[i] == 1)
            lines << kWords[i].one;
        else if (m_counts[i] > 1)
            lines << QString(kWords[i].many).arg(m_counts[i]);
    }
    for (const auto& [family, used] : m_fonts)
        lines << (family.isEmpty() ? "no font named: " + used : QString("font %1 replaced by %2").arg(family, used));
    return lines;
}

} // namespace shapedocument
