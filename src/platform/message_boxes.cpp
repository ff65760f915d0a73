#include "platform/message_boxes.h"

#include "platform/font_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>

namespace {

QMessageBox::Icon toolkitIcon(PromptIcon icon)
{
    switch (icon) {
    case PromptIcon::Stop:
        return QMessageBox::Critical;
    case PromptIcon::Warning:
        return QMessageBox::Warning;
    case PromptIcon::Question:
        return QMessageBox::Question;
    case PromptIcon::Information:
        break;
    }
    return QMessageBox::Information;
}

} // namespace

PromptAnswer MessageBoxes::ask(const QString &text, const QString &caption, PromptIcon icon,
                               PromptButtons buttons)
{
    const bool question = buttons == PromptButtons::YesNo;
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(toolkitIcon(icon));
    box.setWindowTitle(caption);
    box.setTextFormat(Qt::PlainText); // the text may hold a stranger's name
    box.setText(text);
    box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    const int pressed = box.exec();
    if (!question) {
        return PromptAnswer::Ok;
    }
    return pressed == QMessageBox::Yes ? PromptAnswer::Yes : PromptAnswer::No;
}

QString MessageBoxes::ShowSave(const QString &title, const QString &proposedName, const QString &filter)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), title,
                                        QDir(folder).filePath(proposedName), filter);
}

std::optional<QFont> MessageBoxes::ShowFont(const QFont &current, int smallest, int largest)
{
    FontDialog dialog(current, smallest, largest, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.chosenFont()) : std::nullopt;
}
