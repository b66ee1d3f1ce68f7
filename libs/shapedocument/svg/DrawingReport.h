/// Counts what was not imported as it is painted.
#pragma once

#include "shapedocument_export.h"

#include <QStringList>

#include <array>

namespace shapedocument {

/// Kinds of differences from the painted drawing; Lines() has the words for each.
enum class Departure
{
    Filter,
    Mask,
    FlowText,
    TextNotWrapped, ///< in the shape or the width that it names
    TextOnPath,
    Letters,
    TextOutlined, ///< because a text shape would differ
    TextOfRuns,   ///< texts of several runs, which become outlines
    TextReferred, ///< texts painted by reference or beyond the limit, which become outlines
    TextByWord,
    TextBeside,
    Markers,
    ForeignObject,
    Animation,
    Script,
    OtherFile,
    Picture,
    PictureCut,
    PictureIncomplete,
    EmbeddedDrawing,
    Dashes,
    ClipKept,
    CoverKept, ///< parts hidden by others that were not cut
    Coarse,
    Missing,
    BeyondPage,
    OutOfReach,
    Count_
};

/// How often each kind of departure occurred, and the fonts that were replaced.
class SHAPEDOCUMENT_EXPORT DrawingReport
{
public:
    /// Counts departures.
    void Add(Departure kind, int count = 1) { m_counts[static_cast<size_t>(kind)] += count; }
    /// How often it occurred.
    int Count(Departure kind) const { return m_counts[static_cast<size_t>(kind)]; }
    /// family: as the drawing asks for it, empty where it asks for none; used: the installed one.
    void AddReplacedFont(const QString& family, const QString& used);

    /// Whether everything was imported as painted.
    bool IsEmpty() const { return Lines().isEmpty(); }
    /// A phrase for each kind, with its number ("3 filters ignored"), and for each replaced font.
    QStringList Lines() const;
    /// The words, and where there are lines a colon and the lines.
    QString Explained(const QString& words) const;

    /// Visits (name, count) of every kind that occurred, names as in "filtersIgnored".
    template <class Visit>
    void ForEachCount(Visit visit) const
    {
        for (size_t i = 0; i < m_counts.size(); ++i)
            if (m_counts[i] > 0)
                visit(NameOf(static_cast<Departure>(i)), m_counts[i]);
    }
    /// Pairs of the family asked for and the one used.
    const QList<std::pair<QString, QString>>& ReplacedFonts() const { return m_fonts; }

private:
    static const char* NameOf(Departure kind);

    std::array<int, static_cast<size_t>(Departure::Count_)> m_counts{};
    QList<std::pair<QString, QString>> m_fonts;
};

} // namespace shapedocument
