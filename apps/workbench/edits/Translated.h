/// The texts of edits.
#pragma once

#include <QCoreApplication>

/// Where the texts of this folder's free functions and plain classes are translated: Edits::tr.
class Edits
{
    Q_DECLARE_TR_FUNCTIONS(Edits)
};
