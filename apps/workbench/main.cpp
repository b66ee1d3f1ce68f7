/// shapebench, the desktop host of the shape library.
#include "window/MainWindow.h"
#include "window/MessageQuestions.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("shapebench");
    QApplication::setApplicationDisplayName("Shapebench");
    MessageQuestions questions;
    MainWindow window(questions);
    questions.SetParent(&window);
    window.show();
    const QStringList files = QApplication::arguments().mid(1);
    if (!files.isEmpty())
        window.OpenFile(files.front());
    else if (window.Document().OfferUnsaved())
        window.Canvas().FitDrawing();
    return QApplication::exec();
}
