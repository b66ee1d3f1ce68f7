/// The language of the program's texts.
#pragma once

class QCoreApplication;
class QLocale;

namespace look {

/// Loads the texts of the program and of the toolkit's dialogs in the locale's language, if there are any; else English
/// ones, with its plurals. Replaces texts that were loaded before.
void Translate(QCoreApplication& application, const QLocale& locale);

} // namespace look
