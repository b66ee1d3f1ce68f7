/// Where this library lies: modules of its own are looked for from there.
#pragma once

#include <QString>

namespace shapes {

/// The folder of the file that this code was loaded from: the library, or the program that it is linked into. Empty
/// when unknown.
QString OwnFolder();

} // namespace shapes
