#include "platform/message_boxes.h"

#include "core/clsMyApp.h"
#include "platform/font_dialog.h"
#include "platform/on_screen.h"
#include "platform/text_looks.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
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

/// The window that a box stands over: the active one. A tool window goes when it is no longer the active one,
/// so the window that it belongs to takes its place.
QWidget *owner()
{
    QWidget *window = QApplication::activeWindow();
    while (window != nullptr && window->windowType() == Qt::Tool && window->parentWidget() != nullptr) {
        window = window->parentWidget()->window();
    }
    return window;
}

/// A dialog that may go with its owner while it is open; it has been rejected then.
template <typename Dialog>
class OwnedDialog
{
public:
    explicit OwnedDialog(Dialog *dialog) : m_dialog(dialog) {}
    ~OwnedDialog() { delete m_dialog; }
    OwnedDialog(const OwnedDialog &) = delete;
    OwnedDialog &operator=(const OwnedDialog &) = delete;

    Dialog *operator->() const { return m_dialog; }
    Dialog &operator*() const { return *m_dialog; }
    [[nodiscard]] bool isAccepted() const { return m_dialog->exec() == QDialog::Accepted; }

private:
    QPointer<Dialog> m_dialog;
};

} // namespace

void CentreDialog(QDialog &dialog)
{
    dialog.adjustSize();
    const QWidget *owner = dialog.parentWidget();
    const QRect middle =
        owner != nullptr ? owner->window()->frameGeometry() : dialog.screen()->availableGeometry();
    dialog.move(clsMyApp::centredOn(middle, dialog.size()));
    moveOnScreen(dialog);
}

PromptAnswer MessageBoxes::ask(const QString &text, const QString &caption, PromptIcon icon,
                               PromptButtons buttons)
{
    const bool question = buttons == PromptButtons::YesNo;
    const OwnedDialog box(new QMessageBox(owner()));
    box->setIcon(toolkitIcon(icon));
    box->setWindowTitle(caption);
    box->setTextFormat(Qt::PlainText); // the text may hold a stranger's name
    box->setText(text);
    box->setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    const int pressed = box->exec();
    if (!question) {
        return PromptAnswer::Ok;
    }
    return pressed == QMessageBox::Yes ? PromptAnswer::Yes : PromptAnswer::No;
}

QString MessageBoxes::ShowSave(const QString &title, const QString &proposedName, const QString &filter)
{
    const OwnedDialog dialog(new QFileDialog(
        owner(), title, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), filter));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setDefaultSuffix(QFileInfo(proposedName).suffix());
    dialog->selectFile(proposedName);
    CentreDialog(*dialog);
    while (dialog.isAccepted()) {
        QString file = dialog->selectedFiles().value(0);
        const QString folder = QFileInfo(file).absolutePath();
        if (QFileInfo(folder).isDir()) {
            return file;
        }
        tell(QCoreApplication::translate("MessageBoxes", "There is no folder \"%1\".").arg(folder), title,
             PromptIcon::Warning);
    }
    return {};
}

std::optional<QFont> MessageBoxes::ShowFont(const QFont &current, int smallest, int largest)
{
    const OwnedDialog dialog(new FontDialog(current, smallest, largest, owner()));
    return dialog.isAccepted() ? std::optional(dialog->chosenFont()) : std::nullopt;
}

std::optional<ColourValue> MessageBoxes::ShowColor(ColourValue current)
{
    const OwnedDialog dialog(new QColorDialog(toColor(current), owner()));
    CentreDialog(*dialog);
    return dialog.isAccepted() ? std::optional(colourOf(dialog->selectedColor())) : std::nullopt;
}
