#include "window/MainWindow.h"

MainWindow::MainWindow(Questions& questions, QWidget* parent)
    : QMainWindow(parent), m_questions(questions), m_document(questions)
{}

MainWindow::~MainWindow() = default;

bool MainWindow::OpenFile(const QString& path)
{
    return m_document.Open(path);
}
