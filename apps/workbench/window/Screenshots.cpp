#include "window/Screenshots.h"

#include "document/Questions.h"
#include "edits/Import.h"
#include "edits/Structure.h"
#include "edits/Transforms.h"
#include "job/JobPreview.h"
#include "look/Look.h"
#include "window/MainWindow.h"
#include "window/SidePanels.h"

#include "document/TextShape.h"
#include "text/ShapeText.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

/// Asks no questions: failures are counted.
class NobodysAnswers : public Questions
{
public:
    Unsaved AskUnsaved(const QString&) override { return Unsaved::Discard; }
    bool AskYesNo(const QString&, const QString&) override { return false; }
    bool AskLoss(const QString&, const QString&) override { return false; }
    QStringList AskFiles(const QString&, const QString&, bool) override { return {}; }
    QString AskSaveFile(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<std::vector<double>> AskNumbers(const QString&, const std::vector<NumberField>&) override
    {
        return std::nullopt;
    }
    void Tell(const QString&) override {}
    void Complain(const QString& text) override
    {
        QTextStream(stderr) << "shapebench: " << text << '\n';
        ++complaints;
    }

    int complaints = 0;
};

/// Makes the states, each from the one before.
class Tour
{
public:
    explicit Tour(const QString& folder) : m_folder(folder), m_window(m_answers)
    {
        constexpr QSize kSize(1280, 800);
        m_window.resize(kSize);
        m_window.show();
        m_window.Canvas().FitBed();
    }

    int Go(const QStringList& files)
    {
        Import(files.value(0));
        Type();
        Place(files.value(1));
        Repeat();
        Preview();
        Darken();
        return m_answers.complaints + m_unwritten > 0 ? 1 : 0;
    }

private:
    WorkDocument& Document() { return m_window.Document(); }

    void Draw(const char* name)
    {
        for (int i = 0; i < 3; ++i) // runs deferred updates, and those that they defer
            QApplication::processEvents();
        if (!m_window.grab().save(QDir(m_folder).filePath(QString("workbench-%1.png").arg(name))))
            ++m_unwritten;
    }

    void Import(const QString& file)
    {
        ImportFiles(Document(), {file});
        ResizeSelection(Document(), {30, 30, 150, 150});
        Draw("1-import");
    }

    void Type()
    {
        auto* text = new CShapeText;
        text->GetTextP()->ptCenter = {105, 215};
        shapedocument::SetText(
            *text, "Engraved by light,\ncut by light",
            {{.family = "Liberation Serif", .size = 12, .align = ETEXTALIGNMENT_CENTER, .italic = true}});
        text->UpdatePainterPath();
        Document().Insert(QApplication::translate("MainWindow", "Text"), {text});
        Draw("2-text");
    }

    void Place(const QString& file)
    {
        ImportFiles(Document(), {file});
        ResizeSelection(Document(), {215, 30, 106.4, 84});
        Draw("3-picture");
    }

    void Repeat()
    {
        auto* ring = new CShapeVector;
        ring->SetShapeEllipse({215, 140, 22, 22});
        ring->SetVectorType(EVECTOR_ELLIPSE);
        ring->SetColor(0x7B1FA2);
        auto* hole = new CShapeVector;
        hole->SetShapeEllipse({223, 143, 6, 6});
        hole->SetVectorType(EVECTOR_ELLIPSE);
        hole->SetColor(0xD32F2F);
        Document().Insert(QApplication::translate("MainWindow", "Ellipse"), {ring, hole});
        ArraySelection(Document(), {.rows = 4, .columns = 5, .columnGap = 6, .rowGap = 6, .rowShift = 14});
        Draw("4-array");
    }

    void Preview()
    {
        constexpr double kShown = 0.93; // of the time
        m_window.Panels().ShowPreview(true);
        JobPreview& preview = m_window.Panels().Preview();
        if (!preview.MakeReady(m_answers)) {
            m_answers.Complain(preview.Trouble());
            return;
        }
        preview.SetTime(preview.Job()->Seconds() * kShown);
        Draw("5-preview");
        if (!m_window.Panels().Export(JobFormat::Gcode, QDir(m_folder).filePath("workbench.gcode")))
            ++m_unwritten;
    }

    void Darken()
    {
        look::Apply(*qApp, look::Theme::Dark);
        m_window.Panels().ShowPreview(false);
        Draw("6-dark");
    }

    QString m_folder;
    NobodysAnswers m_answers;
    MainWindow m_window;
    int m_unwritten = 0;
};

} // namespace

int DrawScreenshots(const QString& folder, const QStringList& files)
{
    const QTemporaryDir settings; // empty ones, so that the pictures are the same on every machine
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QStandardPaths::setTestModeEnabled(true);
    look::Apply(*qApp, look::Theme::Light);
    if (!QDir().mkpath(folder) || files.size() != 2) {
        QTextStream(stderr) << "usage: shapebench --screenshots FOLDER DRAWING.svg PICTURE\n";
        return 2;
    }
    return Tour(folder).Go(files);
}
