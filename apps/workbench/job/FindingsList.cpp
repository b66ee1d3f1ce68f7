#include "job/FindingsList.h"

#include "look/Look.h"

#include <QHeaderView>

#include <array>

using namespace shapedocument;

namespace {

constexpr int kPlaceRole = Qt::UserRole;

constexpr std::array kTitles{
    QT_TRANSLATE_NOOP("FindingsList", "Contours that are not quite closed"),
    QT_TRANSLATE_NOOP("FindingsList", "Outside the bed"),
    QT_TRANSLATE_NOOP("FindingsList", "Lines drawn twice (cut once)"),
    QT_TRANSLATE_NOOP("FindingsList", "Contours that cross themselves"),
    QT_TRANSLATE_NOOP("FindingsList", "Lines shorter than the beam"),
    QT_TRANSLATE_NOOP("FindingsList", "Parts that the beam burns away"),
    QT_TRANSLATE_NOOP("FindingsList", "Pictures coarser than the engraving"),
    QT_TRANSLATE_NOOP("FindingsList", "Texts not as they should be"),
    QT_TRANSLATE_NOOP("FindingsList", "Hidden shapes (not in the job)"),
    QT_TRANSLATE_NOOP("FindingsList", "Locked shapes"),
};
static_assert(kTitles.size() == static_cast<size_t>(FindingKind::Count_));

QString Told(FindingKind kind, const Finding& finding)
{
    QString told = FindingsList::tr("at %1, %2").arg(finding.place.x(), 0, 'f', 1).arg(finding.place.y(), 0, 'f', 1);
    if (finding.size > 0)
        told += ": " +
                (kind == FindingKind::CoarsePicture ? FindingsList::tr("%1 pixels per mm") : FindingsList::tr("%1 mm"))
                    .arg(finding.size, 0, 'g', 3);
    return finding.text.isEmpty() ? told : told + ": " + finding.text;
}

} // namespace

FindingsList::FindingsList(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setColumnCount(1);
    setUniformRowHeights(true);
    setAccessibleName(tr("Findings"));
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item && item->data(0, kPlaceRole).isValid())
            emit PlaceChosen(item->data(0, kPlaceRole).toRectF());
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (item->data(0, kPlaceRole).isValid())
            emit PlaceChosen(item->data(0, kPlaceRole).toRectF());
    });
}

QString FindingsList::TitleOf(FindingKind kind)
{
    return tr(kTitles.at(static_cast<size_t>(kind)));
}

void FindingsList::SetJob(const MadeJob* job)
{
    const QSignalBlocker quiet(this);
    clear();
    if (!job)
        return;
    for (size_t i = 0; i < job->Report().findings.size(); ++i) {
        const auto kind = static_cast<FindingKind>(i);
        const Findings& findings = job->Report().Of(kind);
        if (findings.count > 0 || !findings.isComplete)
            AddFindings(kind, findings, job->Report().Spoils(kind));
    }
    if (!job->LeftOut().empty())
        AddLeftOut(job->LeftOut());
    if (topLevelItemCount() == 0)
        AddNothing();
}

void FindingsList::AddFindings(FindingKind kind, const Findings& findings, bool spoils)
{
    const QString count = (findings.isComplete ? "%1" : tr("at least %1")).arg(findings.count);
    auto* title = new QTreeWidgetItem(this, {QString("%1: %2").arg(TitleOf(kind), count)});
    title->setIcon(0, look::Icon(spoils ? "dialog-warning" : "help-about"));
    title->setForeground(0, spoils ? look::Problem() : look::Hint());
    for (const Finding& finding : findings.first) {
        auto* line = new QTreeWidgetItem(title, {Told(kind, finding)});
        const double half = finding.size / 2;
        line->setData(0, kPlaceRole, QRectF(finding.place - QPointF(half, half), QSizeF(finding.size, finding.size)));
        line->setToolTip(0, line->text(0));
    }
    if (findings.count > findings.first.size())
        new QTreeWidgetItem(title, {tr("and %1 more").arg(findings.count - findings.first.size())});
    title->setExpanded(findings.first.size() <= 3);
}

void FindingsList::AddLeftOut(const LeftOut& leftOut)
{
    auto* title = new QTreeWidgetItem(this, {tr("Without lines in the job")});
    title->setIcon(0, look::Icon("help-about"));
    for (const auto& [words, count] : leftOut)
        new QTreeWidgetItem(title, {QString("%1 × %2").arg(count).arg(words)});
}

void FindingsList::AddNothing()
{
    auto* line = new QTreeWidgetItem(this, {tr("Nothing to complain of")});
    line->setFlags(Qt::ItemIsEnabled);
}
