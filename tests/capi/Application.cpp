/// What the library does about the process's application object. Usage: capi_application none|core|gui
#include "shapemodel.h"

#include <QGuiApplication>

#include <clocale>
#include <cstdio>
#include <memory>
#include <string>

namespace {

int Fail(const char* what)
{
    std::fprintf(stderr, "%s: %s\n", what, sm_last_error());
    return 1;
}

/// With no application of its own, or with a host's.
int ExpectTexts(const QCoreApplication* own)
{
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    sm_shape text = 0;
    sm_rect rect{};
    if (sm_text_new("Text", nullptr, &text) != SM_OK || sm_shape_rect(text, &rect) != SM_OK || rect.width <= 0)
        return Fail("no text");
    const QCoreApplication* made = QCoreApplication::instance();
    if (own ? made != own : !made || QGuiApplication::platformName() != "offscreen")
        return Fail("another application");
    if (sm_start() != SM_OK || QCoreApplication::instance() != made)
        return Fail("made twice");
    if (std::setlocale(LC_ALL, nullptr) != locale)
        return Fail("another locale");
    return sm_release(text);
}

int ExpectRefusal()
{
    sm_document document = 0;
    if (sm_start() != SM_UNAVAILABLE || sm_document_new(&document) != SM_UNAVAILABLE || document != 0)
        return Fail("no refusal");
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    const std::string kind = count == 2 ? arguments[1] : "";
    if (kind == "core") {
        const QCoreApplication application(count, arguments);
        return ExpectRefusal();
    }
    if (kind == "none") {
        qputenv("QT_QPA_PLATFORM", "nowhere"); // which would end the process
        return ExpectTexts(nullptr);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    return ExpectTexts(&application);
}
