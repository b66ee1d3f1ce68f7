/// The preview: the job as the machine will do it, what is to be known of it, and its way into files.
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

/// Asks for a copy of the drawing whenever it is shown or its settings change, and makes the job beside the window.
class JobPreview : public QWidget
{
    Q_OBJECT

public:
    /// copy gives clones of all shapes, which the caller does not keep.
    explicit JobPreview(std::function<ShapeListOwner()> copy, QWidget* parent = nullptr);
    ~JobPreview() override;

    /// Makes the job of the drawing as it is now; the one that is shown stays until then.
    void Refresh();
    /// What the layers say; makes the job anew where the preview is seen.
    void SetColors(const shapedocument::ColorSettings& colors);
    /// The settings as they are in the form, with the layers' colours.
    const JobSettings& Settings() const;
    /// Shows other settings.
    void SetSettings(const JobSettings& settings);
    /// The job that is shown; null while there is none.
    const std::shared_ptr<const MadeJob>& Job() const { return m_job; }
    /// Makes the job where the one that is shown may not be the drawing's, and waits for it. @return whether there is
    /// one
    bool MakeReady();
    /// To be called when the drawing has changed: what is seen follows.
    void RefreshSoon();
    /// Why there is none.
    const QString& Trouble() const { return m_trouble; }

    /// Where the job is drawn.
    JobCanvas& View() { return *m_canvas; }
    /// How far the head has come (seconds).
    void SetTime(double seconds);
    double Time() const { return m_seconds; }
    /// Lets the head go on, or stops it.
    void Play(bool play);

signals:
    /// A finding's place (mm) that the user wants to see.
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
    void TakeJob(const std::shared_ptr<const MadeJob>& job);
    void ShowSummary();
    void TakeFailure(const QString& reason);
    void ShowProgress(const QString& words, int percent);
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
    std::vector<QWidget*> m_needJob; ///< that are of no use without one
};
