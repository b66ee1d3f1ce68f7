#include "vector/PluginLibrary.h"

#include "host/ICurveSimulate.h"
#include "host/ILog.h"
#include "host/OwnFolder.h"

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

/// The loaded plug-ins of the process, oldest first. Thread-safe.
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
        const PluginHolder holder = RemoveNewest();
        try {
            if (holder.pluginInterface)
                holder.releaseInterface(holder.pluginInterface);
            holder.module->unload();
        } catch (...) { // at exit there is nowhere left to report to
        }
    }

private:
    PluginHolder RemoveNewest()
    {
        const std::lock_guard lock(m_mutex);
        PluginHolder newest = std::move(m_holders.back());
        m_holders.pop_back();
        return newest;
    }

    std::mutex m_mutex; ///< guards m_holders
    std::vector<PluginHolder> m_holders;
    std::atomic<bool> m_released = false; ///< the process is ending
};

PluginRegistry s_registry;

/// Gives the plug-in to the registry. Its own static objects are younger than s_registry and so are destroyed before
/// it; the exit handler is younger still, so that the interface is released first of all.
void Keep(PluginHolder holder)
{
    s_registry.Add(std::move(holder));
    std::atexit([] { s_registry.ReleaseNewest(); });
}

/// Loads a library by plain name from the platform's library path, else from the folder of this library or its folder
/// "shapemodel", where plug-ins are installed. The result may not be loaded; its errorString() is about the file in one
/// of these folders if there is one.
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
    // For a plain name QLibrary tries several file names and reports the error of the last. The exact name gives the
    // error that matters.
    auto byFile = std::make_unique<QLibrary>(fileName);
    byFile->load();
    return byFile;
}

bool CanShowMessage()
{
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    return application && application->thread() == QThread::currentThread();
}

/// An entry of the library. If there is none: null, and the loader's message, which QLibrary does not keep, in reason.
QFunctionPointer Resolve(QLibrary& library, const char* entry, QString& reason)
{
    dlerror(); // clears the errors of earlier calls
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
    holder.module = OpenLibrary(libraryName);
    QString reason = holder.module->errorString();
    const auto failure = [&](const char* text) -> PluginLoad {
        ILog_WriteLog(ELOG_NOTE, reason.toUtf8().constData());
        return {nullptr, showMessage && CanShowMessage() ? QString::fromLatin1(text).arg(libraryName) : QString()};
    };
    if (!holder.module->isLoaded())
        return failure("Load %1 failed! \n");
    holder.newInterface = reinterpret_cast<decltype(&NewInterface)>(Resolve(*holder.module, "NewInterface", reason));
    if (!holder.newInterface)
        return failure("Load %1 faile2! \n");
    holder.releaseInterface =
        reinterpret_cast<decltype(&ReleaseInterface)>(Resolve(*holder.module, "ReleaseInterface", reason));
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
        ILog_WriteLogF(ELOG_NOTE, "%s: %s", name.constData(), exception.what());
    } catch (...) {
        ILog_WriteLogF(ELOG_NOTE, "%s: unknown exception", name.constData());
    }
}

} // namespace shapes
