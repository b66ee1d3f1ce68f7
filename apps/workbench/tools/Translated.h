/// The texts of tools.
#pragma once

#include <QCoreApplication>

/// The translation context of this folder's free functions and plain classes: Tools::tr.
class Tools
{
    Q_DECLARE_TR_FUNCTIONS(Tools)
};
