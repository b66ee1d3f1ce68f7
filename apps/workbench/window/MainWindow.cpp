#include "window/MainWindow.h"

#include "canvas/RulerBar.h"
#include "document/ListEntries.h"
#include "document/Questions.h"
#include "edits/Import.h"
#include "look/LengthUnit.h"
#include "tools/SelectTool.h"
#include "window/SidePanels.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>

namespace {

constexpr QSize kFirstSize(1200, 800);

/// Shows the busy cursor while it lives.
struct BusyCursor
{
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
};

QStringList LocalFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    return files;
}

} // namespace

MainWindow::MainWindow(Questions& questions, QWidget* parent)
    : QMainWindow(parent), m_questions(questions), m_document(questions)
{
    resize(kFirstSize);
    setAcceptDrops(true);
    MakeCanvas();
    MakeFileMenu();
    MakeEditMenu();
    MakeShapeMenu();
    MakeToolsMenu();
    MakeViewMenu();
    MakeHelpMenu();
    MakeToolBars();
    m_panels = new SidePanels(*this, m_document, *m_canvas, m_questions);
    connect(&m_document, &WorkDocument::PathChanged, this, &MainWindow::UpdateTitle);
    connect(&m_document, &WorkDocument::Changed, this, &MainWindow::UpdateStatus);
    connect(&m_document, &WorkDocument::SelectionChanged, this, [this] {
        UpdateActions();
        UpdateStatus();
    });
    m_canvas->SetTool(std::make_unique<SelectTool>(*m_canvas));
    m_canvas->setFocus();
    UpdateTitle();
    UpdateActions();
    UpdateStatus();
}

MainWindow::~MainWindow()
{
    m_document.disconnect(); // panels are destroyed later
    m_panels->EndJob();
}

QAction* MainWindow::Action(const QString& name) const
{
    return findChild<QAction*>(name);
}

void MainWindow::MakeCanvas()
{
    auto* centre = new QWidget;
    auto* grid = new QGridLayout(centre);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    m_canvas = new CanvasView(m_document);
    grid->addWidget(new RulerBar(*m_canvas, Qt::Horizontal), 0, 1);
    grid->addWidget(new RulerBar(*m_canvas, Qt::Vertical), 1, 0);
    grid->addWidget(m_canvas, 1, 1);
    setCentralWidget(centre);
    m_canvas->SetBed(QSettings().value("bed", QRectF(0, 0, 400, 300)).toRectF());

    constexpr int kGap = 12; // pixels
    m_hint = new QLabel;
    m_size = new QLabel;
    m_place = new QLabel;
    m_size->setIndent(kGap);
    m_size->setMinimumWidth(fontMetrics().horizontalAdvance("00000 selected, 0000.00 × 0000.00 mm"));
    m_place->setMinimumWidth(fontMetrics().horizontalAdvance("x 0000.00  y 0000.00"));
    statusBar()->addWidget(m_hint, 1);
    statusBar()->addPermanentWidget(m_size);
    statusBar()->addPermanentWidget(m_place);
    connect(m_canvas, &CanvasView::PointerMoved, this, [this](QPointF mm) {
        const look::LengthUnit& unit = look::LengthUnit::Shown();
        m_place->setText(QString("x %1  y %2").arg(unit.Number(mm.x()), unit.Number(mm.y())));
    });
    connect(m_canvas, &CanvasView::ToolChanged, this, [this] { m_hint->setText(m_canvas->Tool().Hint()); });
    connect(m_canvas, &CanvasView::EditAsked, this, &MainWindow::EditShape);
    connect(m_canvas, &CanvasView::SelectToolAsked, this, [this] { Action("tool.select")->trigger(); });
    connect(m_canvas, &CanvasView::MenuAsked, this, [this](QPoint global) {
        if (auto* menu = menuBar()->findChild<QMenu*>("shape"))
            menu->popup(global);
    });
}

void MainWindow::UpdateTitle()
{
    setWindowTitle(m_document.Title() + "[*]");
    setWindowFilePath(m_document.Path());
    setWindowModified(m_document.IsModified());
}

void MainWindow::UpdateActions()
{
    for (QAction* action : m_forSelection)
        action->setEnabled(!m_document.Selection().empty());
}

void MainWindow::UpdateStatus()
{
    const QRectF rect = m_canvas->SelectionRect();
    const look::LengthUnit& unit = look::LengthUnit::Shown();
    const size_t count = m_document.Selection().size();
    m_size->setText(count == 0 ? tr("%n shapes", nullptr, static_cast<int>(m_document.Shapes().GetCount()))
                               : tr("%1 selected, %2 × %3 %4")
                                     .arg(count)
                                     .arg(unit.Number(rect.width()), unit.Number(rect.height()), unit.Name()));
}

bool MainWindow::MayClose()
{
    if (!m_document.FinishSaving())
        return false;
    if (!m_document.IsModified())
        return true;
    const Questions::Unsaved answer = m_questions.AskUnsaved(m_document.Title());
    return answer == Questions::Unsaved::Discard ||
           (answer == Questions::Unsaved::Save && SaveAsked() && m_document.FinishSaving());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    m_panels->FinishTyping();
    event->setAccepted(MayClose());
    if (event->isAccepted())
        m_document.Close();
}

bool MainWindow::OpenFile(const QString& path)
{
    m_panels->FinishTyping();
    const BusyCursor busy;
    if (IsForeignFile(path))
        return ImportFiles(m_document, {path}) > 0;
    if (!MayClose() || !m_document.Open(path))
        return false;
    m_canvas->FitDrawing();
    return true;
}

void MainWindow::OpenAsked()
{
    for (const QString& file :
         m_questions.AskFiles(tr("Open"), tr("Documents") + " (*.shapes);;" + tr("All files") + " (*)", false))
        OpenFile(file);
}

void MainWindow::ImportAsked()
{
    const QStringList files =
        m_questions.AskFiles(tr("Import"), ImportFilter() + ";;" + tr("All files") + " (*)", true);
    const BusyCursor busy;
    ImportFiles(m_document, files);
}

void MainWindow::NewAsked()
{
    m_panels->FinishTyping();
    if (!MayClose())
        return;
    m_document.New();
    m_canvas->FitBed();
}

bool MainWindow::SaveAsked()
{
    m_panels->FinishTyping();
    return m_document.Path().isEmpty() ? SaveAsAsked() : m_document.Save();
}

bool MainWindow::SaveAsAsked()
{
    m_panels->FinishTyping();
    const QString suggested = m_document.Path().isEmpty() ? m_document.Title() + ".shapes" : m_document.Path();
    const QString file = m_questions.AskNamedFile(tr("Save As"), suggested, tr("Documents") + " (*.shapes)", ".shapes");
    return !file.isEmpty() && m_document.SaveAs(file);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!LocalFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

/// Opens a single dropped document; imports everything else at the place of the drop.
void MainWindow::dropEvent(QDropEvent* event)
{
    const QStringList files = LocalFiles(*event->mimeData());
    event->acceptProposedAction();
    if (files.size() == 1 && IsDocumentFile(files.front())) {
        OpenFile(files.front());
        return;
    }
    const BusyCursor busy;
    const QPointF pixel = m_canvas->mapFrom(this, event->position());
    ImportFiles(m_document, files, m_canvas->View().ToMm(pixel));
}

/// On Enter or a double click: edits texts, the cells of arrays, and the nodes of outlines.
void MainWindow::EditShape(CShape* shape)
{
    m_document.Select({shape});
    switch (shape->GetShapeType()) {
    case ESHAPE_TEXT:
        Action("tool.text")->trigger();
        break;
    case ESHAPE_ARRAY:
        Action("tool.cells")->trigger();
        break;
    case ESHAPE_VECTOR:
        Action("tool.nodes")->trigger();
        break;
    default:
        break;
    }
}

void MainWindow::Delete()
{
    if (!m_canvas->Tool().Delete())
        m_document.Remove(tr("Delete"), m_document.Selection());
}

void MainWindow::SelectAll()
{
    m_document.Select(EntriesOf(m_document.Shapes()));
}
