/// The texts of tools.
#pragma once

#include <QCoreApplication>

/// Where the texts of this folder's free functions and plain classes are translated: Tools::tr.
class Tools
{
    Q_DECLARE_TR_FUNCTIONS(Tools)
};
