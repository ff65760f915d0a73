#include "platform/message_boxes.h"
#include "support/eventually.h"
#include "support/files.h"
#include "support/text.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

namespace {

struct Boxes : testing::Test
{
    /// Does this as soon as a dialog is open.
    template <typename Dialog, typename Act>
    void whileOpen(const Act &act)
    {
        QTimer::singleShot(20, qApp, [this, act] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            dialog == nullptr ? whileOpen<Dialog>(act) : act(*dialog);
        });
    }

    MessageBoxes boxes;
};

TEST_F(Boxes, StandOverAWindowThatStaysAndAreRejectedWhenTheirOwnerGoes)
{
    for (const Qt::WindowType type : {Qt::Tool, Qt::Window}) {
        QWidget window;
        window.show();
        auto *active = new QWidget(&window, type);
        active->show();
        active->activateWindow();
        ASSERT_TRUE(eventually([&] { return active->isActiveWindow(); }));
        whileOpen<QMessageBox>([&](QMessageBox &box) {
            delete active; // and with it the box, unless that stands over the window
            type == Qt::Tool ? box.button(QMessageBox::Yes)->click() : void();
        });
        EXPECT_EQ(boxes.ask(u"?"_s, u"Leave"_s, PromptIcon::Question, PromptButtons::YesNo),
                  type == Qt::Tool ? PromptAnswer::Yes : PromptAnswer::No);
    }
}

TEST_F(Boxes, AFileIsChosenWithItsEndingAndInAFolderThatIsThere)
{
    const QTemporaryDir folder;
    writeFile(folder.filePath(u"old.rtf"_s), "old");
    const auto enter = [&](QFileDialog &dialog, const QString &name) {
        dialog.findChild<QLineEdit *>()->setText(folder.filePath(name));
        QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
    };
    const auto choose = [this] { return boxes.ShowSave(u"Save"_s, u"a.rtf"_s, u"Text (*.rtf)"_s); };
    QStringList told;
    whileOpen<QFileDialog>([&](QFileDialog &dialog) {
        enter(dialog, u"old"_s);
        whileOpen<QMessageBox>([&](QMessageBox &overwrite) {
            told += overwrite.text();
            overwrite.button(QMessageBox::No)->click();
            dialog.reject();
        });
    });
    EXPECT_EQ(choose(), QString());
    whileOpen<QFileDialog>([&](QFileDialog &dialog) {
        enter(dialog, u"none/new"_s);
        whileOpen<QMessageBox>([&](QMessageBox &noFolder) {
            told += noFolder.text();
            noFolder.button(QMessageBox::Ok)->click();
            whileOpen<QFileDialog>([&](QFileDialog &again) { enter(again, u"new"_s); });
        });
    });
    EXPECT_EQ(choose(), folder.filePath(u"new.rtf"_s));
    ASSERT_EQ(told.size(), 2);
    EXPECT_TRUE(told[0].contains(u"old.rtf"_s) && told[1].contains(folder.filePath(u"none"_s)));
}

} // namespace
