/// The panels around the drawing, and the preview that replaces it.
#pragma once

#include "job/JobExport.h"

#include <QObject>

class CanvasView;
class JobPreview;
class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;
class QStackedWidget;
class Questions;
class WorkDocument;

/// Adds docks, the job menu and the themes to a window that has its drawing and its menus.
class SidePanels : public QObject
{
    Q_OBJECT

public:
    /// The window becomes the parent; the other arguments must outlive this object.
    SidePanels(QMainWindow& window, WorkDocument& document, CanvasView& canvas, Questions& questions);

    JobPreview& Preview() { return *m_preview; }
    /// Shows the job instead of the drawing, or the drawing again.
    void ShowPreview(bool shows);
    /// Writes the job of the present drawing; asks for a file if none is given. Shows failures and notes on the file.
    /// @return whether it was written
    bool Export(JobFormat format, QString file = {});
    /// Puts text that is being typed, in a panel or on the canvas, into the drawing. Call before the drawing is
    /// written.
    void FinishTyping();
    /// Cancels and frees jobs, whose shapes share pictures with the document, and deletes the preview. Call before the
    /// document is destroyed.
    void EndJob();

private:
    void MakePreview();
    void MakeDocks();
    void MakeJobMenu();
    void MakeThemes(QMenu& menu);
    void FocusNext();
    QDockWidget* AddDock(const QString& title, const char* name, QWidget* content);
    QAction* AddAction(QMenu& menu, const char* name, const QString& text, const char* icon,
                       const std::function<void()>& done);
    bool Write(const std::shared_ptr<const MadeJob>& job, JobFormat format, const QString& file);
    void ApplyBed();
    void GiveBed();

    QMainWindow& m_window;
    WorkDocument& m_document;
    CanvasView& m_canvas;
    Questions& m_questions;
    QStackedWidget* m_pages = nullptr;
    JobPreview* m_preview = nullptr;
    QAction* m_showsPreview = nullptr;
    std::vector<QDockWidget*> m_docks;
    std::vector<QDockWidget*> m_hidden; ///< to be shown again after the preview
};
