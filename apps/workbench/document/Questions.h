/// Questions and messages to the user, as an interface, so that tests and scripts can answer them.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// A number field of a form.
struct NumberField
{
    QString label;
    double value = 0;      ///< initial value
    double least = 0;      ///< smallest value
    double most = 1e6;     ///< largest value
    int decimals = 2;      ///< 0: a whole number
    bool isLength = false; ///< in millimetres; shown and typed in the user's unit
};

/// All questions and messages go through here. Each question returns the answer.
class Questions
{
    Q_DECLARE_TR_FUNCTIONS(Questions)

public:
    /// What to do about changes that have not been saved.
    enum class Unsaved
    {
        Save,
        Discard,
        Cancel
    };

    virtual ~Questions() = default;

    /// Called before a document with unsaved changes is closed.
    virtual Unsaved AskUnsaved(const QString& document) = 0;
    /// A yes or no; no is the harmless answer.
    virtual bool AskYesNo(const QString& title, const QString& text) = 0;
    /// A yes or no where yes loses something for good. The default button is no.
    virtual bool AskLoss(const QString& title, const QString& text) = 0;
    /// Files to read; empty when the user cancels.
    virtual QStringList AskFiles(const QString& title, const QString& filter, bool several) = 0;
    /// A file to write; empty when the user cancels.
    virtual QString AskSaveFile(const QString& title, const QString& suggested, const QString& filter) = 0;
    /// As AskSaveFile, with the ending (".svg") added where the name has none. Asks about overwriting if only the
    /// completed name exists: AskSaveFile has asked about the typed one.
    QString AskNamedFile(const QString& title, const QString& suggested, const QString& filter, const QString& ending);
    /// A form with numbers. Returns them in the same order; nothing when the user cancels.
    virtual std::optional<std::vector<double>> AskNumbers(const QString& title,
                                                          const std::vector<NumberField>& fields) = 0;
    /// Shows words until done returns true. done is called repeatedly, and each time waits up to the given time (ms).
    /// @return false when the user cancels before; this default shows nothing and cannot be cancelled
    virtual bool Await(const QString& words, const std::function<bool(int milliseconds)>& done);
    /// Shows a line that needs no answer.
    virtual void Tell(const QString& text) = 0;
    /// Reports something that could not be done, and why.
    virtual void Complain(const QString& text) = 0;
    /// As Complain, for work that has failed beside the user's: returns at once, and what the user is doing goes on.
    /// This default waits.
    virtual void Warn(const QString& text) { Complain(text); }
};
