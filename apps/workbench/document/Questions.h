/// What the workbench asks and tells its user, so that tests and scripts can answer in a person's place.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A number that a form asks for.
struct NumberField
{
    QString label;
    double value = 0;  ///< shown first
    double least = 0;  ///< smallest number that is taken
    double most = 1e6; ///< largest
    int decimals = 2;  ///< 0: a whole number
};

/// Everything that interrupts the user goes through here. Each call returns the answer.
class Questions
{
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
    /// Files to read; empty when the user gave up.
    virtual QStringList AskFiles(const QString& title, const QString& filter, bool several) = 0;
    /// A file to write; empty when the user gave up.
    virtual QString AskSaveFile(const QString& title, const QString& suggested, const QString& filter) = 0;
    /// A form with numbers, answered in the same order; nothing when the user gave up.
    virtual std::optional<std::vector<double>> AskNumbers(const QString& title,
                                                          const std::vector<NumberField>& fields) = 0;
    /// A line that the user should see but that needs no answer.
    virtual void Tell(const QString& text) = 0;
    /// Something that could not be done, and why.
    virtual void Complain(const QString& text) = 0;
};
