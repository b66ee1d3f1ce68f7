/// Collects the texts of a drawing and their font families.
#pragma once

#include "svg/DrawingReport.h"

#include <QSet>
#include <QXmlStreamReader>

#include <vector>

namespace shapedocument::drawing {

/// A text element: its words, white space collapsed.
struct SourceText
{
    QString id; ///< empty where it is painted by reference only
    QString words;
    QStringList familyLists; ///< of its letters, as written
};

/// Receives a drawing's elements in order.
class SourceTexts
{
public:
    void Open(QStringView name, const QXmlStreamAttributes& attributes);
    /// To be called before the element's content: the list of font families for that content.
    void SetFamilies(const QString& list) { m_levels.back().families = list; }
    /// The open element is a text.
    void BeginText(const QString& id);
    void AddWords(QStringView words, DrawingReport& report);
    void AddFamiliesOfRules(const QStringList& lists) { m_familiesOfRules.unite({lists.begin(), lists.end()}); }
    void Close();

    std::vector<SourceText> ExtractTexts();
    /// The lists of families with which any text may be painted; an empty list for texts that ask for none.
    QSet<QString> Families() const;

private:
    struct Level
    {
        QString families; ///< for texts in it
        bool inText = false;
        bool inFlow = false;
        bool toWrap = false; ///< words in it have no line of their own in the text's shape
        bool isText = false;
    };

    std::vector<Level> m_levels{Level()};
    std::vector<SourceText> m_texts;
    QSet<QString> m_families;
    QSet<QString> m_familiesOfRules;
    bool m_hasWords = false;
    bool m_inTaken = false;     ///< a text started by BeginText is open
    bool m_wrapIsTold = false;  ///< of the text that is open or was last
    bool m_flowHasText = false; ///< of the flow text that is open or was last
};

} // namespace shapedocument::drawing
