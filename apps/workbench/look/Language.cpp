#include "look/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace look {

void Translate(QCoreApplication& application, const QLocale& locale)
{
    const QString texts = ":/workbench/texts";
    const struct
    {
        QLocale locale;
        const char* name;
        QString folder;
    } sources[] = {{QLocale(QLocale::English), "workbench", texts}, // used last
                   {locale, "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
                   {locale, "workbench", texts}};
    qDeleteAll(application.findChildren<QTranslator*>());
    for (const auto& source : sources) {
        auto translator = std::make_unique<QTranslator>(&application);
        if (translator->load(source.locale, source.name, "_", source.folder))
            QCoreApplication::installTranslator(translator.release()); // the application owns it
    }
}

} // namespace look
