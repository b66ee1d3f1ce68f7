/// shapebench, the desktop host of the shape library.
#include "look/Look.h"
#include "window/MainWindow.h"
#include "window/MessageQuestions.h"
#include "window/Screenshots.h"

#include "host/LibraryVersion.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QSettings>
#include <QTranslator>

namespace {

/// The program's texts, and those of the toolkit's own dialogs, where there are some in the user's language.
void Translate(QApplication& application)
{
    const std::pair<const char*, QString> sources[] = {{"qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
                                                       {"workbench", ":/workbench/texts"}};
    for (const auto& [name, folder] : sources) {
        auto* translator = new QTranslator(&application);
        if (translator->load(QLocale(), name, "_", folder))
            QApplication::installTranslator(translator);
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("shapebench");
    QApplication::setApplicationDisplayName("Shapebench");
    QApplication::setApplicationVersion(SHAPEMODEL_VERSION);
    QApplication::setDesktopFileName("shapebench");
    QApplication::setWindowIcon(look::ProgramIcon());
    Translate(application);

    QCommandLineParser parser;
    parser.setApplicationDescription("Draw, arrange, preview and export work for laser machines.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("file", "A document to open, or a drawing or picture to import.", "[FILE]");
    QCommandLineOption screenshots("screenshots", "Draw states of the window into a folder.", "folder");
    screenshots.setFlags(QCommandLineOption::HiddenFromHelp); // of scripts/demo.sh
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
        window.OpenFile(files.front());
    else if (window.Document().OfferUnsaved())
        window.Canvas().FitDrawing();
    return QApplication::exec();
}
