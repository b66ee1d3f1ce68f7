/// The texts of a drawing and the fonts that they ask for.
#pragma once

#include "svg/DrawingReport.h"

#include <QSet>

#include <vector>

namespace shapedocument::drawing {

/// A text element: what it says, white space collapsed.
struct SourceText
{
    QString id; ///< empty where it is painted by reference only
    QString words;
    QStringList familyLists; ///< that its letters ask for, as they are written
};

/// Fed with a drawing's elements in order.
class SourceTexts
{
public:
    void Open(QStringView name);
    /// Before anything of the element's content: the list of font families that holds from here on.
    void SetFamilies(const QString& list) { m_levels.back().families = list; }
    /// The element that is open begins a text.
    void BeginText(const QString& id);
    void AddWords(QStringView words, DrawingReport& report);
    void AddFamiliesOfRules(const QStringList& lists) { m_familiesOfRules.unite({lists.begin(), lists.end()}); }
    void Close();

    std::vector<SourceText> TakeTexts();
    /// The lists of families that any text may be painted with; an empty one for texts that ask for none.
    QSet<QString> Families() const;

private:
    struct Level
    {
        QString families; ///< that texts in it ask for
        bool inText = false;
        bool inFlow = false;
        bool isText = false;
    };

    std::vector<Level> m_levels{Level()};
    std::vector<SourceText> m_texts;
    QSet<QString> m_families;
    QSet<QString> m_familiesOfRules;
    bool m_hasWords = false;
    bool m_inTaken = false;     ///< a text begun by BeginText is open
    bool m_flowHasText = false; ///< the flow text that is open, or was last
};

} // namespace shapedocument::drawing
