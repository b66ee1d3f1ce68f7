#include "vector/PluginLibrary.h"

#include "host/ICurveSimulate.h"
#include "host/ILog.h"

#include <QApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QMessageBox>
#include <QThread>

#include <dlfcn.h>

#include <atomic>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <vector>

namespace shapes {

namespace {

constexpr int kNote = 1; ///< log level

/// The plug-ins of the process, the oldest first. For every thread.
class PluginRegistry
{
public:
    ~PluginRegistry()
    {
        while (!m_holders.empty())
            ReleaseNewest();
    }

    void Add(PluginHolder holder)
    {
        const std::lock_guard lock(m_mutex);
        m_holders.push_back(std::move(holder));
    }

    bool IsReleased() const { return m_released; }

    void ReleaseNewest()
    {
        m_released = true;
        const PluginHolder holder = TakeNewest();
        try {
            if (holder.pluginInterface)
                holder.releaseInterface(holder.pluginInterface);
            holder.library->unload();
        } catch (...) { // at exit there is nobody left to tell
        }
    }

private:
    PluginHolder TakeNewest()
    {
        const std::lock_guard lock(m_mutex);
        PluginHolder newest = std::move(m_holders.back());
        m_holders.pop_back();
        return newest;
    }

    std::mutex m_mutex; ///< of m_holders
    std::vector<PluginHolder> m_holders;
    std::atomic<bool> m_released = false; ///< the process is ending
};

PluginRegistry s_registry;

/// Hands the plug-in to the registry. A plug-in's own static objects are destroyed before s_registry, which is older
/// than they are; a clean-up that is registered after them comes before that.
void Keep(PluginHolder holder)
{
    s_registry.Add(std::move(holder));
    std::atexit([] { s_registry.ReleaseNewest(); });
}

/// The folder that this library was loaded from.
QString OwnFolder()
{
    Dl_info info{};
    return dladdr(reinterpret_cast<const void*>(&OwnFolder), &info) && info.dli_fname
               ? QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath()
               : QString();
}

/// Loads by plain name on the platform's library path, else from the folder of this library or the folder "shapemodel"
/// in it, where the plug-in is installed: the library path of the process need not name it. Whether it is loaded and, if
/// not, the error are those of the answer; where one of these folders has the file, the error is about that file.
std::unique_ptr<QLibrary> OpenLibrary(const QString& name)
{
    auto library = std::make_unique<QLibrary>(name);
    if (library->load() || name.contains(u'/'))
        return library;
    const QString fileName = QStringLiteral("lib%1.so").arg(name), own = OwnFolder();
    for (const QString& folder :
         own.isEmpty() ? QStringList() : QStringList{own, own + QStringLiteral("/shapemodel")}) {
        auto installed = std::make_unique<QLibrary>(folder + u'/' + name);
        if (installed->load() || QFileInfo::exists(folder + u'/' + fileName))
            return installed;
    }
    // Asked by plain name, the platform goes on to other names of files; its reason is that the last does not exist.
    auto byFile = std::make_unique<QLibrary>(fileName);
    byFile->load();
    return byFile;
}

bool CanShowMessage()
{
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    return application && application->thread() == QThread::currentThread();
}

/// An entry of the library. When there is none, reason tells what the loader says, which QLibrary does not keep.
QFunctionPointer Resolve(QLibrary& library, const char* entry, QString& reason)
{
    dlerror(); // forgets what others have left
    const QFunctionPointer function = library.resolve(entry);
    if (const char* error = function ? nullptr : dlerror())
        reason = QString::fromLocal8Bit(error);
    return function;
}

} // namespace

PluginHolder::PluginHolder() = default;
PluginHolder::~PluginHolder() = default;
PluginHolder::PluginHolder(PluginHolder&&) noexcept = default;
PluginHolder& PluginHolder::operator=(PluginHolder&&) noexcept = default;

PluginLoad LoadPluginInterface(const QString& libraryName, bool showMessage, PluginHolder* slot)
{
    PluginHolder holder;
    holder.library = OpenLibrary(libraryName);
    QString reason = holder.library->errorString();
    const auto failure = [&](const char* text) -> PluginLoad {
        ILog_WriteLog(kNote, reason.toUtf8().constData());
        return {nullptr, showMessage && CanShowMessage() ? QString::fromLatin1(text).arg(libraryName) : QString()};
    };
    if (!holder.library->isLoaded())
        return failure("Load %1 failed! \n");
    holder.newInterface = reinterpret_cast<decltype(&NewInterface)>(Resolve(*holder.library, "NewInterface", reason));
    if (!holder.newInterface)
        return failure("Load %1 faile2! \n");
    holder.releaseInterface =
        reinterpret_cast<decltype(&ReleaseInterface)>(Resolve(*holder.library, "ReleaseInterface", reason));
    if (!holder.releaseInterface)
        return failure("Load %1 faile3! \n");
    try {
        holder.pluginInterface = holder.newInterface();
    } catch (...) {
        LogPluginException(libraryName);
    }
    PluginLoad load{holder.pluginInterface, {}};
    if (slot)
        *slot = std::move(holder);
    else
        Keep(std::move(holder));
    return load;
}

bool ArePluginsReleased()
{
    return s_registry.IsReleased();
}

void ShowPluginMessage(const QString& message)
{
    if (!message.isEmpty())
        QMessageBox::information(nullptr, QStringLiteral("Tips"), message, QMessageBox::Ok);
}

void LogPluginException(const QString& libraryName)
{
    const QByteArray name = libraryName.toUtf8();
    try {
        throw;
    } catch (const std::exception& exception) {
        ILog_WriteLogF(kNote, "%s: %s", name.constData(), exception.what());
    } catch (...) {
        ILog_WriteLogF(kNote, "%s: unknown exception", name.constData());
    }
}

} // namespace shapes
