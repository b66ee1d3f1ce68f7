/// The findings of a job's report, by kind.
#pragma once

#include "job/MadeJob.h"

#include <QTreeWidget>

/// A line for each kind, with its places below it. Choosing a place, by mouse or keys, emits PlaceChosen.
class FindingsList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit FindingsList(QWidget* parent = nullptr);

    /// Shows a job's findings; null clears the list.
    void SetJob(const MadeJob* job);

signals:
    /// The user wants to see this place (mm, y down).
    void PlaceChosen(const QRectF& place);

private:
    void AddFindings(shapedocument::FindingKind kind, const shapedocument::Findings& findings, bool spoils);
    void AddLeftOut(const shapedocument::LeftOut& leftOut);
    void AddNothing();
};
