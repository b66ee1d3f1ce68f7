#include "job/FindingsList.h"

#include "job/FindingTexts.h"
#include "look/Look.h"

using namespace shapedocument;

namespace {

constexpr int kPlaceRole = Qt::UserRole;

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
        auto* line = new QTreeWidgetItem(title, {FindingText(kind, finding)});
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
        new QTreeWidgetItem(title, {QString("%1 × %2").arg(count).arg(LeftOutText(words))});
}

void FindingsList::AddNothing()
{
    auto* line = new QTreeWidgetItem(this, {tr("Nothing to complain of")});
    line->setFlags(Qt::ItemIsEnabled);
}
