/// shapebench, the desktop host of the shape library.
#include "edits/Import.h"
#include "look/Language.h"
#include "look/Look.h"
#include "window/MainWindow.h"
#include "window/MessageQuestions.h"
#include "window/Screenshots.h"

#include "host/LibraryVersion.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSettings>
#include <algorithm>
#include <string_view>

namespace {

/// Help and version are told where there is no display, too.
void NeedNoDisplayForWords(int argc, char** argv)
{
    constexpr std::string_view WORDS[]{"-h", "--help", "--help-all", "-v", "--version"};
    if (std::find_first_of(argv + 1, argv + argc, std::begin(WORDS), std::end(WORDS)) != argv + argc)
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// Opens the first file, or imports it where it is not a document; imports all others into the drawing.
void OpenFiles(MainWindow& window, const QStringList& files)
{
    window.OpenFile(files.front());
    if (files.size() > 1)
        ImportFiles(window.Document(), files.mid(1));
}

} // namespace

int main(int argc, char** argv)
{
    NeedNoDisplayForWords(argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName("shapebench");
    QApplication::setApplicationDisplayName("Shapebench");
    QApplication::setApplicationVersion(SHAPEMODEL_VERSION);
    QApplication::setDesktopFileName("shapebench");
    QApplication::setWindowIcon(look::ProgramIcon());
    look::Translate(application, QLocale());

    QCommandLineParser parser;
    parser.setApplicationDescription("Draw, arrange, preview and export work for laser machines.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("file",
                                 "A document to open, or a drawing or picture to import. What further files hold comes "
                                 "into the drawing.",
                                 "[FILE...]");
    QCommandLineOption screenshots("screenshots", "Draw states of the window into a folder.", "folder");
    screenshots.setFlags(QCommandLineOption::HiddenFromHelp); // for scripts/demo.sh
    parser.addOption(screenshots);
    parser.process(application);
    const QStringList files = parser.positionalArguments();
    if (parser.isSet(screenshots))
        return DrawScreenshots(parser.value(screenshots), files);

    look::Apply(application, static_cast<look::Theme>(QSettings().value("theme").toInt()));
    MessageQuestions questions;
    MainWindow window(questions);
    questions.SetParent(&window);
    window.show();
    if (!files.isEmpty())
        OpenFiles(window, files);
    else if (window.Document().OfferUnsaved())
        window.Canvas().FitDrawing();
    return QApplication::exec();
}
