#include "platform/message_boxes.h"

#include "core/clsMyApp.h"
#include "platform/font_dialog.h"
#include "platform/text_looks.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QScreen>
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

void CentreDialog(QDialog &dialog)
{
    dialog.adjustSize();
    const QWidget *owner = dialog.parentWidget();
    const QRect middle =
        owner != nullptr ? owner->window()->frameGeometry() : dialog.screen()->availableGeometry();
    dialog.move(clsMyApp::centredOn(middle, dialog.size()));
}

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
    QFileDialog dialog(QApplication::activeWindow(), title,
                       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectFile(proposedName);
    CentreDialog(dialog);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

std::optional<QFont> MessageBoxes::ShowFont(const QFont &current, int smallest, int largest)
{
    FontDialog dialog(current, smallest, largest, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.chosenFont()) : std::nullopt;
}

std::optional<ColourValue> MessageBoxes::ShowColor(ColourValue current)
{
    QColorDialog dialog(toColor(current), QApplication::activeWindow());
    CentreDialog(dialog);
    return dialog.exec() == QDialog::Accepted ? std::optional(colourOf(dialog.selectedColor()))
                                              : std::nullopt;
}
