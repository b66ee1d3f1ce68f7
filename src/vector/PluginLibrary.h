/// Loads plug-in libraries with the entries NewInterface and ReleaseInterface, and gives them back at exit. Threads may
/// load plug-ins at the same time.
#pragma once

#include <QString>

#include <memory>

class ICurveSimulate;
class QLibrary;

namespace shapes {

/// A loaded plug-in: the library, its two entries and the interface that it made.
struct PluginHolder
{
    PluginHolder();
    ~PluginHolder();
    PluginHolder(PluginHolder&&) noexcept;
    PluginHolder& operator=(PluginHolder&&) noexcept;

    std::unique_ptr<QLibrary> library;
    ICurveSimulate* (*newInterface)() = nullptr;
    void (*releaseInterface)(ICurveSimulate*) = nullptr;
    ICurveSimulate* pluginInterface = nullptr; ///< null: the plug-in calls itself unavailable; never released then
};

/// What loading came to.
struct PluginLoad
{
    ICurveSimulate* pluginInterface = nullptr;
    QString message; ///< for ShowPluginMessage, once the caller is ready to be called back; empty when none is due
};

/// Loads a library, resolves its entries and makes its interface. Of a failure the log gets the library's error, and
/// the answer a message when showMessage is set and the calling thread could show one.
/// @param libraryName plain name, sought on the platform's library path and then beside this library, or a path
/// @param slot receives the plug-in, which the caller then owns; when null, the registry keeps it until the process
///             exits, releases the interfaces in reverse order and unloads the libraries
PluginLoad LoadPluginInterface(const QString& libraryName, bool showMessage, PluginHolder* slot = nullptr);

/// Whether the process is ending and has given plug-ins back: their interfaces must not be called any more.
bool ArePluginsReleased();

/// Shows the message in a box and waits for the user; nothing for an empty one.
void ShowPluginMessage(const QString& message);

/// Logs that a plug-in threw. To be called while the exception is handled: foreign exceptions must not reach the host.
void LogPluginException(const QString& libraryName);

} // namespace shapes
