/// The one error of this program: a file and the reason why it could not be read, made sense of or written.
#pragma once

#include <QString>

struct Failure
{
    QString file;
    QString reason;
};
