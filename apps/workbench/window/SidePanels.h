/// What stands around the drawing: panels, and the preview that takes its place.
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

/// Puts docks, the menu of jobs and the themes into a window that has its drawing and its menus.
class SidePanels : public QObject
{
    Q_OBJECT

public:
    /// The window becomes the parent; all others must outlive it.
    SidePanels(QMainWindow& window, WorkDocument& document, CanvasView& canvas, Questions& questions);

    JobPreview& Preview() { return *m_preview; }
    /// Shows the job in place of the drawing, or the drawing again.
    void ShowPreview(bool shows);
    /// Writes the job of the drawing as it is; asks for a file where none is given. What goes wrong, and what is to be
    /// known of the file, is told. @return whether it was written
    bool Export(JobFormat format, QString file = {});
    /// What is being typed, in a panel or on the canvas, comes into the drawing. To be called before it is written.
    void FinishTyping();
    /// Gives up the job that is made or shown, whose shapes share pictures with the document. To be called before the
    /// document goes; the preview is gone then.
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
    void TakeBed();
    void GiveBed();

    QMainWindow& m_window;
    WorkDocument& m_document;
    CanvasView& m_canvas;
    Questions& m_questions;
    QStackedWidget* m_pages = nullptr;
    JobPreview* m_preview = nullptr;
    QAction* m_showsPreview = nullptr;
    std::vector<QDockWidget*> m_docks;
    std::vector<QDockWidget*> m_hidden; ///< that come back behind the preview
};
