/// The preview: the job as the machine will do it, its findings, and its export.
#pragma once

#include "job/JobExport.h"
#include "job/JobMaker.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class FindingsList;
class JobCanvas;
class JobForm;
class QComboBox;
class QLabel;
class QProgressBar;
class QSlider;
class QToolButton;
class Questions;

/// Takes a copy of the drawing whenever it is shown or its settings change, and makes the job on another thread.
class JobPreview : public QWidget
{
    Q_OBJECT

public:
    /// copy returns clones of all shapes, which the preview owns.
    explicit JobPreview(std::function<ShapeListOwner()> copy, QWidget* parent = nullptr);
    ~JobPreview() override;

    /// Makes the job of the present drawing; the job shown stays until the new one is finished.
    void Refresh();
    /// Sets the colours of the layers; makes the job again if the preview is visible.
    void SetColors(const shapedocument::ColorSettings& colors);
    /// The form's settings, with the layers' colours.
    const JobSettings& Settings() const;
    /// Shows other settings.
    void SetSettings(const JobSettings& settings);
    /// The job shown; null while there is none.
    const std::shared_ptr<const MadeJob>& Job() const { return m_job; }
    /// Makes the job if the one shown may be outdated, and waits for it, which the user can cancel.
    /// @return whether there is one; if not, Trouble() is empty where the user has cancelled
    bool MakeReady(Questions& questions);
    /// Call when the drawing has changed: updates a visible preview.
    void RefreshSoon();
    /// Why there is no job.
    const QString& Trouble() const { return m_trouble; }

    /// The canvas that shows the job.
    JobCanvas& View() { return *m_canvas; }
    /// Sets the time that is shown (seconds from the job's start).
    void SetTime(double seconds);
    double Time() const { return m_seconds; }
    /// Starts or stops the animation of the head.
    void Play(bool play);

signals:
    /// The user wants to see a finding's place (mm).
    void ShowPlace(const QRectF& place);
    /// The user wants the job in a file.
    void ExportWanted(JobFormat format);
    /// The user has changed settings of the job.
    void SettingsChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* MakePlayer();
    QWidget* MakeSide();
    QWidget* MakeExports();
    void ShowJob(const std::shared_ptr<const MadeJob>& job);
    void ShowSummary();
    void ShowFailure(const QString& reason);
    void ShowProgress(const QString& words, int percent);
    /// "1:02:03" or "2:03".
    static QString Clock(double seconds);
    void ShowTimes();
    void GoOn();
    double Speed() const;

    std::function<ShapeListOwner()> m_copy;
    JobMaker m_maker;
    std::shared_ptr<const MadeJob> m_job;
    QString m_trouble;
    double m_seconds = 0;
    QTimer m_ticks, m_soon;
    QElapsedTimer m_sinceTick;

    JobCanvas* m_canvas = nullptr;
    JobForm* m_form = nullptr;
    FindingsList* m_findings = nullptr;
    QLabel* m_summary = nullptr;
    QLabel* m_times = nullptr;
    QProgressBar* m_progress = nullptr;
    QSlider* m_slider = nullptr;
    QComboBox* m_speed = nullptr;
    QToolButton* m_play = nullptr;
    std::vector<QWidget*> m_needJob; ///< disabled without a job
};
