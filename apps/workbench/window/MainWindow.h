/// MainWindow: the workbench's window, with menus and their commands, the drawing, and panels around it.
#pragma once

#include "canvas/CanvasView.h"
#include "document/WorkDocument.h"

#include <QKeySequence>
#include <QMainWindow>

#include <functional>

class QLabel;
class Questions;
class SidePanels;

/// The window of one drawing.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// questions must outlive the window.
    explicit MainWindow(Questions& questions, QWidget* parent = nullptr);
    ~MainWindow() override;

    /// The drawing in this window.
    WorkDocument& Document() { return m_document; }
    /// The canvas that shows it.
    CanvasView& Canvas() { return *m_canvas; }
    /// The panels around it.
    SidePanels& Panels() { return *m_panels; }

    /// Opens a document file, or imports another file; asks about unsaved changes first.
    bool OpenFile(const QString& path);
    /// Waits for saving, and asks about unsaved changes. @return whether the drawing may be closed
    bool MayClose();
    /// The action with that objectName ("shape.group"); null for none.
    QAction* Action(const QString& name) const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// The text, shortcut and icon of an action.
    struct ActionText
    {
        const char* name; ///< "menu.action", for tests and translations of shortcuts
        QString text;
        QKeySequence keys;
        const char* icon = "";
    };
    /// When an action can be used.
    enum class Needs
    {
        Nothing,
        Selection
    };

    QAction* Add(QMenu* menu, const ActionText& text, const std::function<void()>& done, Needs needs = Needs::Nothing);
    QAction* AddToggle(QMenu* menu, const ActionText& text, bool on, const std::function<void(bool)>& done);
    void MakeCanvas();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeShapeMenu();
    void MakeStateActions(QMenu* menu);
    void MakeViewMenu();
    void MakeToolsMenu();
    void MakeHelpMenu();
    void MakeToolBars();
    template <class Tool>
    void AddTool(QMenu* menu, const ActionText& text);
    void UpdateTitle();
    void UpdateActions();
    void UpdateStatus();
    void EditShape(CShape* shape);
    void OpenAsked();
    void ImportAsked();
    bool SaveAsked();
    bool SaveAsAsked();
    void NewAsked();
    void Delete();
    void SelectAll();
    void AskArray();
    void AskTurn();
    void AskMirror();
    void AskBed();

    Questions& m_questions;
    WorkDocument m_document;
    CanvasView* m_canvas = nullptr;
    SidePanels* m_panels = nullptr;
    std::vector<QAction*> m_forSelection; ///< actions that need a selection
    QLabel* m_place = nullptr;
    QLabel* m_size = nullptr;
    QLabel* m_hint = nullptr;
};
