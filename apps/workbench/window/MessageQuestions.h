/// Questions by message boxes and dialogs.
#pragma once

#include "document/Questions.h"

#include <QCoreApplication>

class QWidget;

/// Asks the user, and waits for the answer.
class MessageQuestions : public Questions
{
    Q_DECLARE_TR_FUNCTIONS(MessageQuestions)

public:
    /// Sets the parent window of dialogs.
    void SetParent(QWidget* parent) { m_parent = parent; }

    Unsaved AskUnsaved(const QString& document) override;
    bool AskYesNo(const QString& title, const QString& text) override;
    bool AskLoss(const QString& title, const QString& text) override;
    QStringList AskFiles(const QString& title, const QString& filter, bool several) override;
    QString AskSaveFile(const QString& title, const QString& suggested, const QString& filter) override;
    std::optional<std::vector<double>> AskNumbers(const QString& title,
                                                  const std::vector<NumberField>& fields) override;
    bool Await(const QString& words, const std::function<bool(int)>& done) override;
    void Tell(const QString& text) override;
    void Complain(const QString& text) override;
    void Warn(const QString& text) override;

private:
    QWidget* m_parent = nullptr;
};
