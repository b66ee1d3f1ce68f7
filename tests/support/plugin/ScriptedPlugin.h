/// What the test plug-in does and what happened to it; reached through its entry "Script".
#pragma once

#include <QCoreApplication>
#include <QLibrary>
#include <QPointF>

#include <functional>
#include <string>
#include <vector>

namespace test {

struct PluginScript
{
    std::string calls; ///< "prepare 3; optimize 3/3; " and so on
    std::function<void(std::vector<QPointF>&, std::vector<unsigned char>&)> optimize;
};

/// plugin: a library beside the program.
inline PluginScript& ScriptOf(const char* plugin)
{
    const QString path = QCoreApplication::applicationDirPath() + '/' + plugin;
    return *reinterpret_cast<PluginScript* (*)()>(QLibrary(path).resolve("Script"))();
}

} // namespace test
