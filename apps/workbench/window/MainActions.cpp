/// The menus and tool bars of MainWindow.
#include "window/MainWindow.h"

#include "document/Questions.h"
#include "edits/Clipboard.h"
#include "edits/Structure.h"
#include "edits/Tidy.h"
#include "edits/Transforms.h"
#include "look/LengthUnit.h"
#include "look/Look.h"
#include "tools/BoxTool.h"
#include "tools/CellTool.h"
#include "tools/MirrorTool.h"
#include "tools/NodeTool.h"
#include "tools/PathTool.h"
#include "tools/SelectTool.h"
#include "tools/TextTool.h"

#include "plane/Length.h"
#include "record/DocumentVersion.h"

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>

namespace {

constexpr double kPixelsPerMillimetre = 96 / shapedocument::kMmPerInch; // of a usual screen

} // namespace

QAction* MainWindow::Add(QMenu* menu, const ActionText& text, const std::function<void()>& done, Needs needs)
{
    QAction* action = menu->addAction(look::Icon(text.icon), text.text);
    action->setObjectName(text.name);
    action->setShortcut(text.keys);
    if (!text.keys.isEmpty())
        action->setToolTip(QString("%1 (%2)").arg(action->toolTip(), text.keys.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, [done] { done(); });
    addAction(action); // so that its shortcut works while the menu is closed, too
    if (needs == Needs::Selection)
        m_forSelection.push_back(action);
    return action;
}

QAction* MainWindow::AddToggle(QMenu* menu, const ActionText& text, bool on, const std::function<void(bool)>& done)
{
    QAction* action = menu->addAction(text.text);
    action->setObjectName(text.name);
    action->setShortcut(text.keys);
    action->setCheckable(true);
    action->setChecked(on);
    connect(action, &QAction::toggled, this, done);
    addAction(action);
    return action;
}

template <class Tool>
void MainWindow::AddTool(QMenu* menu, const ActionText& text)
{
    QAction* action = Add(menu, text, [this] {
        m_canvas->Tool().Leave(); // first, because the new tool may start with the shape that it finishes
        m_canvas->SetTool(std::make_unique<Tool>(*m_canvas));
    });
    action->setCheckable(true);
    connect(m_canvas, &CanvasView::ToolChanged, action,
            [this, action] { action->setChecked(dynamic_cast<Tool*>(&m_canvas->Tool()) != nullptr); });
}

void MainWindow::MakeFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->setObjectName("file");
    Add(menu, {"file.new", tr("&New"), QKeySequence::New, "document-new"}, [this] { NewAsked(); });
    Add(menu, {"file.open", tr("&Open…"), QKeySequence::Open, "document-open"}, [this] { OpenAsked(); });
    menu->addSeparator();
    Add(menu, {"file.save", tr("&Save"), QKeySequence::Save, "document-save"}, [this] { SaveAsked(); });
    Add(menu, {"file.save-as", tr("Save &As…"), Qt::CTRL | Qt::SHIFT | Qt::Key_S, "document-save-as"},
        [this] { SaveAsAsked(); });
    menu->addSeparator();
    Add(menu, {"file.import", tr("&Import…"), Qt::CTRL | Qt::Key_I, "document-import"}, [this] { ImportAsked(); });
    menu->addSeparator();
    Add(menu, {"file.quit", tr("&Quit"), Qt::CTRL | Qt::Key_Q, "application-exit"}, [this] { close(); });
}

void MainWindow::MakeEditMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    menu->setObjectName("edit");
    QAction* undo = m_document.Undo().createUndoAction(this, tr("&Undo"));
    QAction* redo = m_document.Undo().createRedoAction(this, tr("&Redo"));
    undo->setObjectName("edit.undo");
    redo->setObjectName("edit.redo");
    undo->setShortcut(QKeySequence::Undo);
    redo->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
    undo->setIcon(look::Icon("edit-undo"));
    redo->setIcon(look::Icon("edit-redo"));
    menu->addActions({undo, redo});
    menu->addSeparator();
    Add(
        menu, {"edit.cut", tr("Cu&t"), QKeySequence::Cut, "edit-cut"}, [this] { CutSelection(m_document); },
        Needs::Selection);
    Add(
        menu, {"edit.copy", tr("&Copy"), QKeySequence::Copy, "edit-copy"}, [this] { CopySelection(m_document); },
        Needs::Selection);
    Add(menu, {"edit.paste", tr("&Paste"), QKeySequence::Paste, "edit-paste"}, [this] { Paste(m_document); });
    Add(
        menu, {"edit.duplicate", tr("Dup&licate"), Qt::CTRL | Qt::Key_D}, [this] { DuplicateSelection(m_document); },
        Needs::Selection);
    Add(
        menu, {"edit.delete", tr("&Delete"), QKeySequence::Delete, "edit-delete"}, [this] { Delete(); },
        Needs::Selection);
    menu->addSeparator();
    Add(menu, {"edit.select-all", tr("Select &All"), QKeySequence::SelectAll, "edit-select-all"},
        [this] { SelectAll(); });
    Add(
        menu, {"edit.select-none", tr("Select &Nothing"), Qt::CTRL | Qt::SHIFT | Qt::Key_A},
        [this] { m_document.Select({}); }, Needs::Selection);
}

void MainWindow::MakeShapeMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Shape"));
    menu->setObjectName("shape");
    const auto add = [&](const ActionText& text, const std::function<void()>& done) {
        Add(menu, text, done, Needs::Selection);
    };
    add({"shape.group", tr("&Group"), Qt::CTRL | Qt::Key_G, "object-group"}, [this] { GroupSelection(m_document); });
    add({"shape.ungroup", tr("&Ungroup"), Qt::CTRL | Qt::SHIFT | Qt::Key_G, "object-ungroup"},
        [this] { UngroupSelection(m_document); });
    add({"shape.array", tr("&Array…"), Qt::CTRL | Qt::Key_R, "object-array"}, [this] { AskArray(); });
    menu->addSeparator();
    add({"shape.turn-left", tr("Turn &Left"), Qt::CTRL | Qt::Key_BracketLeft, "object-rotate-left"},
        [this] { TurnSelection(m_document, -90, m_canvas->SelectionRect().center()); });
    add({"shape.turn-right", tr("Turn &Right"), Qt::CTRL | Qt::Key_BracketRight, "object-rotate-right"},
        [this] { TurnSelection(m_document, 90, m_canvas->SelectionRect().center()); });
    add({"shape.turn", tr("&Turn…"), Qt::CTRL | Qt::SHIFT | Qt::Key_T}, [this] { AskTurn(); });
    add({"shape.mirror-x", tr("&Mirror Left to Right"), Qt::CTRL | Qt::SHIFT | Qt::Key_H, "object-flip-horizontal"},
        [this] { MirrorSelectionX(m_document); });
    add({"shape.mirror-y", tr("Mirror Top to &Bottom"), Qt::CTRL | Qt::SHIFT | Qt::Key_V, "object-flip-vertical"},
        [this] { MirrorSelectionY(m_document); });
    add({"shape.mirror-line", tr("Mirror Across Lin&e…"), {}, "object-flip-line"}, [this] { AskMirror(); });
    menu->addSeparator();
    add({"shape.front", tr("To &Front"), Qt::CTRL | Qt::SHIFT | Qt::Key_Up, "object-order-front"},
        [this] { OrderSelection(m_document, Order::Front); });
    add({"shape.forward", tr("For&ward"), Qt::CTRL | Qt::Key_Up, "object-order-raise"},
        [this] { OrderSelection(m_document, Order::Forward); });
    add({"shape.backward", tr("Bac&kward"), Qt::CTRL | Qt::Key_Down, "object-order-lower"},
        [this] { OrderSelection(m_document, Order::Backward); });
    add({"shape.back", tr("T&o Back"), Qt::CTRL | Qt::SHIFT | Qt::Key_Down, "object-order-back"},
        [this] { OrderSelection(m_document, Order::Back); });
    menu->addSeparator();
    MakeStateActions(menu);
}

void MainWindow::MakeStateActions(QMenu* menu)
{
    const auto add = [&](const ActionText& text, bool (*edit)(WorkDocument&), Needs needs) {
        Add(
            menu, text, [this, edit] { edit(m_document); }, needs);
    };
    add({"shape.lock", tr("Lock"), Qt::CTRL | Qt::Key_L, "object-locked"}, LockSelection, Needs::Selection);
    add({"shape.unlock", tr("U&nlock All"), Qt::CTRL | Qt::SHIFT | Qt::Key_L, {}}, UnlockAll, Needs::Nothing);
    add({"shape.hide", tr("&Hide"), Qt::CTRL | Qt::Key_H, "object-hidden"}, HideSelection, Needs::Selection);
    add({"shape.show", tr("&Show All"), Qt::CTRL | Qt::ALT | Qt::Key_H, "object-visible"}, ShowAll, Needs::Nothing);
    menu->addSeparator();
    Add(
        menu, {"shape.close", tr("&Close Outlines"), {}}, [this] { CloseSelection(m_document, false); },
        Needs::Selection);
    Add(
        menu, {"shape.fill", tr("F&ill"), Qt::CTRL | Qt::Key_F}, [this] { CloseSelection(m_document, true); },
        Needs::Selection);
    add({"shape.unfill", tr("Unfill"), Qt::CTRL | Qt::SHIFT | Qt::Key_F}, UnfillSelection, Needs::Selection);
    add({"shape.fit", tr("Fit Cur&ves"), {}, "fit-curves"}, FitCurves, Needs::Selection);
    add({"shape.clean", tr("Clean U&p"), {}, "clean-up"}, CleanUp, Needs::Nothing);
}

void MainWindow::MakeToolsMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Tools"));
    menu->setObjectName("tools");
    AddTool<SelectTool>(menu, {"tool.select", tr("&Select"), Qt::Key_S, "tool-select"});
    AddTool<NodeTool>(menu, {"tool.nodes", tr("Edit &Nodes"), Qt::Key_N, "tool-nodes"});
    AddTool<CellTool>(menu, {"tool.cells", tr("Select &Cells"), Qt::Key_C, "object-array"});
    AddTool<MirrorTool>(menu, {"tool.mirror", tr("&Mirror"), Qt::Key_M, "object-flip-line"});
    menu->addSeparator();
    AddTool<RectangleTool>(menu, {"tool.rectangle", tr("&Rectangle"), Qt::Key_R, "tool-rectangle"});
    AddTool<EllipseTool>(menu, {"tool.ellipse", tr("&Ellipse"), Qt::Key_E, "tool-ellipse"});
    AddTool<PolygonTool>(menu, {"tool.polygon", tr("&Polygon"), Qt::Key_P, "tool-polygon"});
    AddTool<PolylineTool>(menu, {"tool.polyline", tr("Poly&line"), Qt::Key_L, "tool-polyline"});
    AddTool<PenTool>(menu, {"tool.pen", tr("&Bézier Pen"), Qt::Key_B, "tool-pen"});
    AddTool<TextTool>(menu, {"tool.text", tr("&Text"), Qt::Key_T, "tool-text"});
}

void MainWindow::MakeViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    menu->setObjectName("view");
    Add(menu, {"view.zoom-in", tr("Zoom &In"), QKeySequence::ZoomIn, "zoom-in"},
        [this] { m_canvas->Zoom(ViewTransform::kZoomStep); });
    Add(menu, {"view.zoom-out", tr("Zoom &Out"), QKeySequence::ZoomOut, "zoom-out"},
        [this] { m_canvas->Zoom(1 / ViewTransform::kZoomStep); });
    Add(menu, {"view.actual", tr("&Actual Size"), Qt::CTRL | Qt::Key_0, "zoom-original"},
        [this] { m_canvas->Zoom(kPixelsPerMillimetre / m_canvas->View().Scale()); });
    Add(menu, {"view.fit", tr("Fit &Drawing"), Qt::CTRL | Qt::Key_1, "zoom-fit-best"},
        [this] { m_canvas->FitDrawing(); });
    Add(menu, {"view.fit-bed", tr("Fit &Bed"), Qt::CTRL | Qt::Key_2}, [this] { m_canvas->FitBed(); });
    Add(
        menu, {"view.fit-selection", tr("Fit &Selection"), Qt::CTRL | Qt::Key_3}, [this] { m_canvas->FitSelection(); },
        Needs::Selection);
    menu->addSeparator();
    AddToggle(menu, {"view.grid", tr("&Grid"), Qt::CTRL | Qt::Key_Apostrophe}, true,
              [this](bool on) { m_canvas->ShowGrid(on); });
    AddToggle(menu, {"view.snap", tr("Sna&p to Shapes and Grid"), Qt::CTRL | Qt::Key_Semicolon},
              QSettings().value("snap", true).toBool(), [this](bool on) {
                  m_canvas->Snap().SetOn(on);
                  QSettings().setValue("snap", on);
              });
    m_canvas->Snap().SetOn(QSettings().value("snap", true).toBool());
    AddToggle(menu, {"view.leads", tr("&Leads of All Shapes"), {}}, false,
              [this](bool on) { m_canvas->ShowLeads(on); });
    QAction* inches = AddToggle(menu, {"view.inches", tr("I&nches"), {}}, false, [this](bool on) {
        QSettings().setValue("inches", on);
        look::LengthUnit::Shown().ShowInches(on);
        UpdateStatus();
    });
    inches->setChecked(QSettings().value("inches").toBool());
    Add(menu, {"view.bed", tr("B&ed Size…"), {}}, [this] { AskBed(); });
}

void MainWindow::MakeHelpMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    menu->setObjectName("help");
    Add(menu, {"help.about", tr("&About"), {}, "help-about"}, [this] {
        m_questions.Complain(tr("Shapebench: drawings for laser engraving and cutting, document format %1.")
                                 .arg(SHAPE_DOCUMENT_VERSION));
    });
}

void MainWindow::MakeToolBars()
{
    QToolBar* tools = new QToolBar(tr("Tools"));
    tools->setObjectName("tools.bar");
    addToolBar(Qt::LeftToolBarArea, tools);
    for (const char* name : {"tool.select", "tool.nodes", "tool.cells", "tool.mirror", "tool.rectangle", "tool.ellipse",
                             "tool.polygon", "tool.polyline", "tool.pen", "tool.text"})
        tools->addAction(Action(name));
    QToolBar* main = addToolBar(tr("Main"));
    main->setObjectName("main.bar");
    for (const char* name :
         {"file.new", "file.open", "file.save", "file.import", "", "edit.undo", "edit.redo", "", "shape.group",
          "shape.ungroup", "shape.array", "", "view.zoom-in", "view.zoom-out", "view.fit"})
        *name ? main->addAction(Action(name)) : (void)main->addSeparator();
}
