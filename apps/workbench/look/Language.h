/// The language of the program's texts.
#pragma once

class QCoreApplication;
class QLocale;

namespace look {

/// Takes the program's texts in the locale's language, and those of the toolkit's own dialogs, where there are some;
/// else English ones, with its plurals. What was taken before goes.
void Translate(QCoreApplication& application, const QLocale& locale);

} // namespace look
