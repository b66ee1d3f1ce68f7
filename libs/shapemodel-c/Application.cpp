#include "Application.h"

#include "Refusal.h"

#include "image/ImageStores.h"

#include <QDir>
#include <QGuiApplication>

#include <atomic>
#include <clocale>
#include <mutex>
#include <optional>
#include <string>

namespace capi {

namespace {

/// Restores the locale: the application sets that of the process to the user's, which changes how programs print
/// numbers.
class KeptLocale
{
public:
    KeptLocale()
    {
        if (const char* now = std::setlocale(LC_ALL, nullptr))
            m_locale = now;
    }
    KeptLocale(const KeptLocale&) = delete;
    KeptLocale& operator=(const KeptLocale&) = delete;
    ~KeptLocale()
    {
        if (m_locale)
            std::setlocale(LC_ALL, m_locale->c_str());
    }

private:
    std::optional<std::string> m_locale;
};

/// Suppresses Qt's messages: the application writes on locales to standard error.
class Silence
{
public:
    Silence() : m_before(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})) {}
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    ~Silence() { qInstallMessageHandler(m_before); }

private:
    QtMessageHandler m_before;
};

/// Without this platform plug-in the application would end the process.
bool HasOffscreenPlatform()
{
    for (const QString& folder : QCoreApplication::libraryPaths())
        if (!QDir(folder + "/platforms").entryList({"*qoffscreen*"}, QDir::Files).isEmpty())
            return true;
    return false;
}

/// The application is never destroyed: handles may be used until the process ends.
void MakeApplication()
{
    static char name[] = "shapemodel";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static char* arguments[] = {name, option, platform, nullptr};
    static int count = 3;
    const KeptLocale locale;
    const Silence silence;
    Expect(HasOffscreenPlatform(), SM_UNAVAILABLE, "Qt's offscreen platform is not installed");
    if (!qEnvironmentVariableIsSet("SHAPEHOST_LOG"))
        qputenv("SHAPEHOST_LOG", "/dev/null");
    static const QGuiApplication* const application = new QGuiApplication(count, arguments);
    static_cast<void>(application);
}

/// Tests whether there are stores: only with one a picture keeps its pixels.
bool HasStores()
{
    constexpr int kSide = 4;
    CShapeImage probe;
    cv::Mat pixels(kSide, kSide, CV_8UC1, cv::Scalar(0));
    probe.SetImage(pixels, false);
    return !probe.GetOriginalPixelSize().isEmpty();
}

void MakeWhatIsMissing()
{
    if (!QCoreApplication::instance())
        MakeApplication();
    Expect(qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr, SM_UNAVAILABLE,
           "the process has a QCoreApplication that is no QGuiApplication");
    static const ImageStores* const stores = HasStores() ? nullptr : new ImageStores;
    static_cast<void>(stores);
}

} // namespace

void ExpectApplication()
{
    static std::mutex mutex;
    static std::atomic<bool> isMade = false;
    if (isMade)
        return;
    const std::lock_guard lock(mutex);
    if (isMade)
        return;
    MakeWhatIsMissing();
    isMade = true;
}

} // namespace capi
