/// Loads plug-in libraries with the entries NewInterface and ReleaseInterface and releases them at exit. Thread-safe.
#pragma once

#include <QString>

#include <memory>

class ICurveSimulate;
class QLibrary;

namespace shapes {

/// A loaded plug-in: the library as a module, its two entries and the interface that it created.
struct PluginHolder
{
    PluginHolder();
    ~PluginHolder();
    PluginHolder(PluginHolder&&) noexcept;
    PluginHolder& operator=(PluginHolder&&) noexcept;

    std::unique_ptr<QLibrary> module;
    ICurveSimulate* (*newInterface)() = nullptr;
    void (*releaseInterface)(ICurveSimulate*) = nullptr;
    ICurveSimulate* pluginInterface = nullptr; ///< null: the plug-in calls itself unavailable; never released then
};

/// The result of loading a plug-in.
struct PluginLoad
{
    ICurveSimulate* pluginInterface = nullptr;
    QString message; ///< for ShowPluginMessage, to be shown once the caller may be re-entered; empty: none
};

/// Loads a library, resolves its entries and creates its interface. On a failure the library's error is logged, and the
/// result holds a message if showMessage is set and the calling thread can show one.
/// @param libraryName plain name, looked for on the platform's library path and then beside this library, or a path
/// @param slot receives the plug-in, which the caller then owns; when null, the registry keeps it until the process
///             exits, releases the interfaces in reverse order and unloads the libraries
PluginLoad LoadPluginInterface(const QString& libraryName, bool showMessage, PluginHolder* slot = nullptr);

/// Whether the process is ending and has released plug-ins: their interfaces must not be called any more.
bool ArePluginsReleased();

/// Shows the message in a box and waits for the user; nothing for an empty one.
void ShowPluginMessage(const QString& message);

/// Logs the exception that is being handled, which a plug-in has thrown. Such exceptions must not reach the host.
void LogPluginException(const QString& libraryName);

} // namespace shapes
