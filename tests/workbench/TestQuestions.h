/// Prepared answers to the workbench's questions, and a record of its questions and messages.
#pragma once

#include "document/Questions.h"
#include "document/WorkDocument.h"

#include <functional>

/// Returns its fields as answers; keeps questions and messages.
class TestQuestions : public Questions
{
public:
    Unsaved AskUnsaved(const QString& document) override
    {
        asked.append(document);
        return unsaved;
    }
    bool AskYesNo(const QString& title, const QString&) override
    {
        asked.append(title);
        return yes;
    }
    bool AskLoss(const QString& title, const QString&) override
    {
        asked.append("Loss: " + title);
        return lose;
    }
    QStringList AskFiles(const QString&, const QString&, bool) override { return files; }
    QString AskSaveFile(const QString&, const QString&, const QString&) override { return saveFile; }
    std::optional<std::vector<double>> AskNumbers(const QString&, const std::vector<NumberField>&) override
    {
        return numbers;
    }
    bool Await(const QString& words, const std::function<bool(int)>& done) override
    {
        return !givesUp && Questions::Await(words, done);
    }
    void Tell(const QString& text) override { told.append(text); }
    void Complain(const QString& text) override
    {
        complaints.append(text);
        if (onComplaint)
            onComplaint();
    }

    Unsaved unsaved = Unsaved::Discard;
    bool yes = false;
    bool lose = false;
    bool givesUp = false; ///< at once, what takes time
    QStringList files;
    QString saveFile;
    std::optional<std::vector<double>> numbers;
    std::function<void()> onComplaint; ///< what goes on while the message is shown
    QStringList asked, told, complaints;
};

/// Writes the file, or the document's if none is named, and waits for it.
inline bool IsSaved(WorkDocument& document, const QString& file = {})
{
    return (file.isEmpty() ? document.Save() : document.SaveAs(file)) && document.FinishSaving();
}
