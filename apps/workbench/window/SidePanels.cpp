#include "window/SidePanels.h"

#include "canvas/CanvasView.h"
#include "document/FailureText.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "job/JobCanvas.h"
#include "job/JobPreview.h"
#include "look/Look.h"
#include "panels/LayersPanel.h"
#include "panels/ShapePanel.h"

#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSettings>
#include <QStackedWidget>
#include <QToolBar>

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

using shapedocument::Failure;

SidePanels::SidePanels(QMainWindow& window, WorkDocument& document, CanvasView& canvas, Questions& questions)
    : QObject(&window), m_window(window), m_document(document), m_canvas(canvas), m_questions(questions)
{
    MakePreview();
    MakeDocks();
    MakeJobMenu();
    connect(&document, &WorkDocument::Changed, m_preview, &JobPreview::RefreshSoon);
    connect(&document.Layers(), &ColorLayers::Changed, m_preview,
            [this] { m_preview->SetColors(m_document.Layers().Settings()); });
}

void SidePanels::MakePreview()
{
    m_preview = new JobPreview([this] { return ShapeListOwner(m_document.Shapes().Clone()); });
    JobSettings settings;
    QSettings stored;
    ReadJobSettings(stored, settings);
    m_preview->SetSettings(settings);
    m_pages = new QStackedWidget;
    m_pages->addWidget(m_window.takeCentralWidget());
    m_pages->addWidget(m_preview);
    m_window.setCentralWidget(m_pages);
    connect(m_preview, &JobPreview::ShowPlace, &m_canvas, &CanvasView::ShowPlace);
    connect(m_preview, &JobPreview::ExportWanted, this, [this](JobFormat format) { Export(format); });
    connect(m_preview, &JobPreview::SettingsChanged, this, [this] {
        QSettings kept;
        WriteJobSettings(kept, m_preview->Settings());
        GiveBed();
    });
}

QDockWidget* SidePanels::AddDock(const QString& title, const char* name, QWidget* content)
{
    auto* dock = new QDockWidget(title, &m_window);
    dock->setObjectName(name);
    dock->setWidget(content);
    m_window.addDockWidget(Qt::RightDockWidgetArea, dock);
    m_docks.push_back(dock);
    return dock;
}

void SidePanels::MakeDocks()
{
    constexpr int kWidth = 290, kLayers = 300, kShape = 440; // pixels
    QDockWidget* layers = AddDock(tr("Layers"), "dock.layers", new LayersPanel(m_document));
    QDockWidget* shape = AddDock(tr("Shape"), "dock.shape", new ShapePanel(m_document));
    m_window.resizeDocks({layers, shape}, {kWidth, kWidth}, Qt::Horizontal);
    m_window.resizeDocks({layers, shape}, {kLayers, kShape}, Qt::Vertical);
    if (auto* menu = m_window.menuBar()->findChild<QMenu*>("view")) {
        menu->addSeparator();
        menu->addAction(layers->toggleViewAction());
        menu->addAction(shape->toggleViewAction());
        AddAction(*menu, "view.next-part", tr("Ne&xt Part of the Window"), "", [this] {
            FocusNext();
        })->setShortcut(Qt::Key_F6);
        MakeThemes(*menu);
    }
}

/// Moves the focus from the drawing to each panel and back: on the drawing Tab selects shapes.
void SidePanels::FocusNext()
{
    const QWidget* current = m_window.focusWidget();
    std::vector<QWidget*> parts{m_pages->currentWidget()};
    for (QDockWidget* dock : m_docks)
        if (dock->isVisible())
            parts.push_back(dock->widget());
    const auto holds = [current](const QWidget* part) { return current && part->isAncestorOf(current); };
    auto next = std::ranges::find_if(parts, holds);
    next = next == parts.end() || std::next(next) == parts.end() ? parts.begin() : std::next(next);
    const QWidget* last = *next;
    for (QWidget* field = (*next)->nextInFocusChain(); field != last; field = field->nextInFocusChain())
        if ((*next)->isAncestorOf(field) && field->isVisible() && field->isEnabled() &&
            (field->focusPolicy() & Qt::TabFocus) == Qt::TabFocus)
            return field->setFocus(Qt::TabFocusReason);
}

void SidePanels::MakeThemes(QMenu& menu)
{
    QMenu* themes = menu.addMenu(tr("&Theme"));
    auto* group = new QActionGroup(themes);
    const int chosen = QSettings().value("theme").toInt();
    for (const auto& [theme, text] :
         {std::pair(look::Theme::System, tr("As the &Desktop")), std::pair(look::Theme::Light, tr("&Light")),
          std::pair(look::Theme::Dark, tr("D&ark"))}) {
        QAction* action = themes->addAction(text);
        action->setCheckable(true);
        action->setChecked(static_cast<int>(theme) == chosen);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [taken = theme] {
            QSettings().setValue("theme", static_cast<int>(taken));
            look::Apply(*qApp, taken);
        });
    }
}

QAction* SidePanels::AddAction(QMenu& menu, const char* name, const QString& text, const char* icon,
                               const std::function<void()>& done)
{
    QAction* action = menu.addAction(look::Icon(icon), text);
    action->setObjectName(name);
    action->setParent(&m_window);
    m_window.addAction(action);
    connect(action, &QAction::triggered, this, [done] { done(); });
    return action;
}

void SidePanels::MakeJobMenu()
{
    auto* menu = new QMenu(tr("&Job"), &m_window);
    menu->setObjectName("job");
    const auto* help = m_window.menuBar()->findChild<QMenu*>("help");
    m_window.menuBar()->insertMenu(help ? help->menuAction() : nullptr, menu);
    m_showsPreview = AddAction(*menu, "job.preview", tr("&Preview"), "job-preview",
                               [this] { ShowPreview(m_showsPreview->isChecked()); });
    m_showsPreview->setCheckable(true);
    m_showsPreview->setShortcut(Qt::Key_F5);
    menu->addSeparator();
    AddAction(*menu, "job.gcode", tr("Export &G-code…"), "document-export", [this] {
        Export(JobFormat::Gcode);
    })->setShortcut(Qt::CTRL | Qt::Key_E);
    AddAction(*menu, "job.svg", tr("Export &SVG…"), "", [this] { Export(JobFormat::Svg); });
    AddAction(*menu, "job.png", tr("Export P&NG…"), "", [this] { Export(JobFormat::Png); });
    if (auto* bar = m_window.findChild<QToolBar*>("main.bar")) {
        bar->addSeparator();
        bar->addAction(m_showsPreview);
    }
    const std::pair<const char*, std::function<void()>> views[] = {
        // apply to the preview while it is shown
        {"view.zoom-in", [this] { m_preview->View().Zoom(ViewTransform::kZoomStep); }},
        {"view.zoom-out", [this] { m_preview->View().Zoom(1 / ViewTransform::kZoomStep); }},
        {"view.fit", [this] { m_preview->View().Fit(); }}};
    for (const auto& [name, done] : views)
        if (auto* action = m_window.findChild<QAction*>(name))
            connect(action, &QAction::triggered, m_preview, [this, act = done] {
                if (m_preview->isVisible())
                    act();
            });
    for (QAction* action : m_window.findChildren<QAction*>()) // choosing a tool moves the focus to the drawing
        if (action->objectName().startsWith("tool."))
            connect(action, &QAction::triggered, this, [this] { ShowPreview(false); });
}

void SidePanels::ShowPreview(bool shows)
{
    if (shows == (m_pages->currentWidget() == m_preview))
        return;
    m_showsPreview->setChecked(shows);
    if (shows) {
        m_canvas.Tool().Leave();
        ApplyBed();
        m_hidden.clear();
        for (QDockWidget* dock : m_docks)
            if (dock->isVisible())
                m_hidden.push_back(dock);
    }
    for (QDockWidget* dock : m_hidden)
        dock->setVisible(!shows);
    m_pages->setCurrentIndex(shows ? 1 : 0);
}

void SidePanels::FinishTyping()
{
    const QPointer<QWidget> field = m_window.focusWidget();
    if (field && field != &m_canvas) {
        field->clearFocus(); // fields emit typed values when they lose the focus
        if (field && field->isVisible())
            field->setFocus();
    }
    m_canvas.Tool().Leave();
}

void SidePanels::EndJob()
{
    delete std::exchange(m_preview, nullptr);
}

/// Sets the job's bed to that of the drawing.
void SidePanels::ApplyBed()
{
    JobSettings settings = m_preview->Settings();
    settings.bed = m_canvas.Bed().size();
    m_preview->SetSettings(settings);
}

void SidePanels::GiveBed()
{
    if (m_preview->Settings().Sheet() == m_canvas.Bed())
        return;
    m_canvas.SetBed(m_preview->Settings().Sheet());
    QSettings().setValue("bed", m_canvas.Bed());
}

bool SidePanels::Export(JobFormat format, QString file)
{
    FinishTyping();
    if (m_pages->currentWidget() != m_preview)
        ApplyBed();
    if (!m_preview->MakeReady(m_questions)) {
        if (!m_preview->Trouble().isEmpty())
            m_questions.Complain(m_preview->Trouble());
        return false;
    }
    const QString ending = "." + EndingOf(format);
    const QFileInfo document(m_document.Path().isEmpty() ? m_document.Title() : m_document.Path());
    if (file.isEmpty())
        file = m_questions.AskNamedFile(tr("Export"), document.path() + "/" + document.completeBaseName() + ending,
                                        FilterOf(format), ending);
    return !file.isEmpty() && Write(m_preview->Job(), format, file);
}

/// Writes on another thread; the file stays as it was when the user cancels.
bool SidePanels::Write(const std::shared_ptr<const MadeJob>& job, JobFormat format, const QString& file)
{
    const auto notes = std::make_shared<QStringList>();
    const auto stops = std::make_shared<std::atomic<bool>>(false);
    try {
        if (!m_document.Aside().Run(tr("Writing %1").arg(QFileInfo(file).fileName()),
                                    [=] { *notes = WriteJob(*job, format, file, [stops] { return !*stops; }); })) {
            *stops = true;
            return false;
        }
    } catch (const Failure& failure) {
        m_questions.Complain(Sentence(failure));
        return false;
    }
    if (notes->isEmpty())
        m_questions.Tell(tr("%1 is written").arg(file));
    else
        m_questions.Complain(tr("%1 is written, but: %2").arg(file, notes->join("; ")));
    return true;
}
