/// MainWindow, the workbench's window: menus and what they do, the drawing, panels around it.
#pragma once

#include "document/WorkDocument.h"

#include <QMainWindow>

class Questions;

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
    /// Opens a document file; asks first about changes that are not saved.
    bool OpenFile(const QString& path);

private:
    Questions& m_questions;
    WorkDocument m_document;
};
