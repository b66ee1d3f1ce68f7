#include "window/MessageQuestions.h"

#include "look/LengthBox.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFormLayout>
#include <QMainWindow>
#include <QMessageBox>
#include <QProgressDialog>
#include <QStatusBar>

#include <functional>

namespace {

constexpr int kToldFor = 15'000; // ms

} // namespace

Questions::Unsaved MessageQuestions::AskUnsaved(const QString& document)
{
    const auto answer =
        QMessageBox::warning(m_parent, tr("Unsaved changes"), tr("Save the changes of %1?").arg(document),
                             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        return Unsaved::Save;
    return answer == QMessageBox::Discard ? Unsaved::Discard : Unsaved::Cancel;
}

bool MessageQuestions::AskYesNo(const QString& title, const QString& text)
{
    return QMessageBox::question(m_parent, title, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes) ==
           QMessageBox::Yes;
}

bool MessageQuestions::AskLoss(const QString& title, const QString& text)
{
    return QMessageBox::warning(m_parent, title, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

QStringList MessageQuestions::AskFiles(const QString& title, const QString& filter, bool several)
{
    if (several)
        return QFileDialog::getOpenFileNames(m_parent, title, {}, filter);
    const QString file = QFileDialog::getOpenFileName(m_parent, title, {}, filter);
    return file.isEmpty() ? QStringList() : QStringList(file);
}

QString MessageQuestions::AskSaveFile(const QString& title, const QString& suggested, const QString& filter)
{
    return QFileDialog::getSaveFileName(m_parent, title, suggested, filter);
}

std::optional<std::vector<double>> MessageQuestions::AskNumbers(const QString& title,
                                                                const std::vector<NumberField>& fields)
{
    QDialog dialog(m_parent);
    dialog.setWindowTitle(title);
    QFormLayout layout(&dialog);
    std::vector<std::function<double()>> answers;
    for (const NumberField& field : fields) {
        if (field.isLength) {
            auto* box = new look::LengthBox(field.least, field.most, field.decimals);
            box->SetMillimetres(field.value);
            layout.addRow(field.label, box);
            answers.emplace_back([box] {
                box->interpretText(); // a shortcut that accepts the dialog does not end the edit
                return box->Millimetres();
            });
            continue;
        }
        auto* box = new QDoubleSpinBox;
        box->setDecimals(field.decimals);
        box->setRange(field.least, field.most);
        box->setValue(field.value);
        layout.addRow(field.label, box);
        answers.emplace_back([box] { return box->value(); });
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout.addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    std::vector<double> numbers;
    for (const auto& answer : answers)
        numbers.push_back(answer());
    return numbers;
}

/// Opens a dialog only if done takes long. Before and while it is shown, the window accepts no edits.
bool MessageQuestions::Await(const QString& words, const std::function<bool(int)>& done)
{
    constexpr int kFrame = 15, kPatience = 400; // ms
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < kPatience) {
        if (done(kFrame))
            return true;
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    QProgressDialog dialog(words + "…", tr("Cancel"), 0, 0, m_parent);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(0);
    dialog.show();
    while (!done(kFrame)) {
        QApplication::processEvents();
        if (dialog.wasCanceled())
            return false;
    }
    return true;
}

void MessageQuestions::Tell(const QString& text)
{
    if (auto* window = qobject_cast<QMainWindow*>(m_parent))
        window->statusBar()->showMessage(text, kToldFor);
}

void MessageQuestions::Complain(const QString& text)
{
    QMessageBox::warning(m_parent, QApplication::applicationDisplayName(), text);
}

void MessageQuestions::Warn(const QString& text)
{
    auto* box =
        new QMessageBox(QMessageBox::Warning, QApplication::applicationDisplayName(), text, QMessageBox::Ok, m_parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}
