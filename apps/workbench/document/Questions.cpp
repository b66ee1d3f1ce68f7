#include "document/Questions.h"

#include <QFileInfo>

QString Questions::AskNamedFile(const QString& title, const QString& suggested, const QString& filter,
                                const QString& ending)
{
    const QString file = AskSaveFile(title, suggested, filter);
    if (file.isEmpty() || !QFileInfo(file).suffix().isEmpty())
        return file;
    const QFileInfo completed(file + ending);
    if (completed.exists() && !AskLoss(title, tr("%1 exists. Replace it?").arg(completed.fileName())))
        return {};
    return completed.filePath();
}

bool Questions::Await(const QString&, const std::function<bool(int)>& done)
{
    constexpr int kWhile = 50; // ms
    while (!done(kWhile)) {
    }
    return true;
}
