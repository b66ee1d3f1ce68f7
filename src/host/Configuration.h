/// The host's configuration file and its location. May be called on any thread.
#pragma once

class QString;

namespace shapes {

/// The resources directory of the host's theme, as a clean absolute path; created when it does not exist.
QString ResourcesDir();

/// The integer under group/key of an INI file; defaultValue when file or key is missing, 0 for text that is not a
/// number. A change of the file, or of a value by another QSettings of this process, takes effect at the next call. A
/// file whose identity, size and times are unchanged is not read again.
int ReadConfigInt(const QString& group, const QString& key, int defaultValue, const QString& iniPath);

/// Whether polylines may be refitted (KEY_OPTIMIZATION in APP_CFG of Data/cfg.ini, on by default).
bool OptimizationEnabled();

} // namespace shapes
