/// How far from the page's corner the points of a drawing may lie, judged from its source alone.
#pragma once

#include "svg/TransformReach.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QXmlStreamAttributes>

#include <optional>
#include <string_view>
#include <vector>

namespace shapedocument::drawing {

/// Fed with a drawing's elements in order. Bounds what is painted and the clips around it without following references:
/// any use may show any element, other uses included, each once in a row. What paints letters, symbols, markers or
/// patterns may reach anywhere.
class SourceReach
{
public:
    SourceReach() : m_levels(1) {}
    /// name: without prefix.
    void Open(QStringView name, const QXmlStreamAttributes& attributes);
    void Close();
    void AddRules(const QString& rules); ///< of the style sheet that is open; comments may cut it in pieces
    /// User units of the page; infinity for anywhere.
    double Bound() const;
    /// Beyond kPaintedReach without being used; no clips, and hidden ones only where rules or uses may show them.
    int FarElements() const;

private:
    struct Level
    {
        ReachFrame frame;    ///< of a clip's content that of the element that it clips
        ReachFrame wide;     ///< as if nothing were made smaller: bounds the element also as seen from any outer one
        double viewport = 0; ///< its longer side
        bool isClip = false;
        QString id;
        bool holdsUse = false; ///< noted
        bool isStyle = false;
        bool isGone = false;      ///< not displayed, with all inside
        bool isInvisible = false; ///< but what is inside may be visible again
    };
    ReachFrame EnterViewport(const QXmlStreamAttributes& attributes, Level& level);
    std::optional<double> LengthOf(QStringView length, double whole);
    double LargestOf(std::string_view text, double whole);
    double ReachOf(const QXmlStreamAttributes& attributes, double viewport);
    static void Enter(Level& level, const ReachFrame& inner);
    static void Hide(Level& level, const QXmlStreamAttributes& attributes, const QByteArray& style);
    void Note(const Level& level, double distance);
    void NoteUse(const Level& level, const QXmlStreamAttributes& attributes);
    void NoteRules(const QByteArray& text);
    double ReachOfUses() const;

    std::vector<Level> m_levels;
    double m_reach = 0;
    int m_farElements = 0;    ///< but for hidden ones
    int m_farHidden = 0;      ///< by attributes and styles
    bool m_rulesShow = false; ///< or hide
    double m_clipReach = 0;   ///< of clips, in the frames that they are used in
    double m_ruleReach = 0;   ///< of lengths that hold in any frame: in style sheets, and of lines' widths, inherited
    double m_wideReach = 0;   ///< of all, in the wide frames
    ReachFrame m_largest;     ///< of all elements
    ReachFrame m_widest;      ///< likewise
    ReachFrame m_widestUse;
    double m_usePlace = 0;
    size_t m_uses = 0;
    bool m_usesInClips = false;
    QSet<QString> m_used, m_holders; ///< ids that uses name, and those of elements that are or hold a use
    QSet<QString> m_fitted,
        m_viewports;    ///< ids that uses give a size of their own, which renderers may keep for svg elements
    QByteArray m_rules; ///< of the style sheet that is open
    bool m_beyondViewport = false; ///< lengths above 100 %, which uses may show in larger viewports
    bool m_anywhere = false;
};

} // namespace shapedocument::drawing
