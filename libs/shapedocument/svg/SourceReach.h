/// How far from the page's corner the points of a drawing may lie, judged from its source alone.
#pragma once

#include <QString>
#include <QXmlStreamAttributes>

#include <optional>
#include <string_view>
#include <vector>

namespace shapedocument::drawing {

/// Fed with a drawing's elements in order. Bounds what is painted and the clips around it, without following
/// references: a drawing that repeats its parts, or paints letters, may reach anywhere.
class SourceReach
{
public:
    SourceReach() : m_levels(1) {}
    /// name: without prefix.
    void Open(QStringView name, const QXmlStreamAttributes& attributes);
    void Close() { m_levels.pop_back(); }
    void AddRules(const QString& rules); ///< of a style sheet
    /// User units of the page; infinity for anywhere.
    double Bound() const;

private:
    /// A point no farther from the element's origin than r lies no farther from the page's corner than r * scale +
    /// shift, both measured along the axes.
    struct Frame
    {
        double scale = 1;
        double shift = 0;
        double At(double distance) const { return distance * scale + shift; }
        void Enter(const Frame& inner);
    };
    struct Level
    {
        Frame frame;         ///< of a clip's content that of the element that it clips
        double viewport = 0; ///< its longer side
        bool isClip = false;
    };
    Frame FrameOfAll(std::string_view transforms);
    Frame FrameOf(std::string_view function, std::string_view& numbers);
    Frame EnterViewport(const QXmlStreamAttributes& attributes, Level& level);
    std::optional<double> LengthOf(QStringView length, double whole);
    double LargestOf(std::string_view text, double whole);
    double ReachOf(const QXmlStreamAttributes& attributes, double viewport);
    void Note(const Level& level, double distance);

    std::vector<Level> m_levels;
    double m_reach = 0;
    double m_clipReach = 0; ///< of clips, in the frames that they are used in
    double m_ruleReach = 0; ///< of the lengths in style sheets
    Frame m_largest;        ///< of all elements
    bool m_anywhere = false;
};

/// The largest coordinate of the points of a path's text and of the places its curves are led by.
double ReachOfPath(std::string_view text);

} // namespace shapedocument::drawing
