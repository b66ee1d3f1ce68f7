/// What the workbench asks and tells its user, so that tests and scripts can answer in a person's place.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// A number that a form asks for.
struct NumberField
{
    QString label;
    double value = 0;      ///< shown first
    double least = 0;      ///< smallest number that is taken
    double most = 1e6;     ///< largest
    int decimals = 2;      ///< 0: a whole number
    bool isLength = false; ///< millimetres, which are shown and typed in the user's unit
};

/// Everything that interrupts the user goes through here. Each call returns the answer.
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

    /// The document is about to be closed, and has changes that are not saved.
    virtual Unsaved AskUnsaved(const QString& document) = 0;
    /// A yes or no; no is the harmless answer.
    virtual bool AskYesNo(const QString& title, const QString& text) = 0;
    /// A yes or no where yes loses something for good. The default button is no.
    virtual bool AskLoss(const QString& title, const QString& text) = 0;
    /// Files to read; empty when the user gave up.
    virtual QStringList AskFiles(const QString& title, const QString& filter, bool several) = 0;
    /// A file to write; empty when the user gave up.
    virtual QString AskSaveFile(const QString& title, const QString& suggested, const QString& filter) = 0;
    /// The same, with the ending (".svg") where the name has none. Asks about overwriting where only the completed name
    /// is that of a file: AskSaveFile has asked about the name as it was typed.
    QString AskNamedFile(const QString& title, const QString& suggested, const QString& filter, const QString& ending);
    /// A form with numbers, answered in the same order; nothing when the user gave up.
    virtual std::optional<std::vector<double>> AskNumbers(const QString& title,
                                                          const std::vector<NumberField>& fields) = 0;
    /// Shows what is being done until done answers true; it is asked again and again, and waits a while (ms) each time.
    /// @return false when the user gave up before; as it is here, nobody does, and nothing is shown
    virtual bool Await(const QString& words, const std::function<bool(int milliseconds)>& done);
    /// A line that the user should see but that needs no answer.
    virtual void Tell(const QString& text) = 0;
    /// Something that could not be done, and why.
    virtual void Complain(const QString& text) = 0;
};
