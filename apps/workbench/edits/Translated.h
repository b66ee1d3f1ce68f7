/// The texts of edits.
#pragma once

#include <QCoreApplication>

/// The translation context of this folder's free functions and plain classes: Edits::tr.
class Edits
{
    Q_DECLARE_TR_FUNCTIONS(Edits)
};
