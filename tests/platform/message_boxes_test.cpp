#include "platform/message_boxes.h"
#include "support/eventually.h"
#include "support/files.h"
#include "support/text.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

namespace {

/// A window with a tool window of its own, which is the active one.
struct Boxes : testing::Test
{
    void SetUp() override
    {
        window.show();
        tool->show();
        tool->activateWindow();
        ASSERT_TRUE(eventually([this] { return tool->isActiveWindow(); }));
    }

    /// Does this as soon as a dialog is open.
    template <typename Dialog, typename Act>
    void whileOpen(const Act &act)
    {
        QTimer::singleShot(20, qApp, [this, act] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            dialog == nullptr ? whileOpen<Dialog>(act) : act(*dialog);
        });
    }

    QWidget window;
    QPointer<QWidget> tool = new QWidget(&window, Qt::Tool);
    MessageBoxes boxes;
};

TEST_F(Boxes, StandOverAWindowThatStays)
{
    whileOpen<QMessageBox>([this](QMessageBox &box) {
        delete tool;
        box.button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(boxes.ask(u"?"_s, u"Leave"_s, PromptIcon::Question, PromptButtons::YesNo), PromptAnswer::Yes);
}

TEST_F(Boxes, AreRejectedWhenTheirOwnerGoes)
{
    auto *owner = new QWidget;
    owner->show();
    owner->activateWindow();
    ASSERT_TRUE(eventually([&] { return owner->isActiveWindow(); }));
    whileOpen<QMessageBox>([&](QMessageBox &) { delete owner; });
    EXPECT_EQ(boxes.ask(u"?"_s, u"Leave"_s, PromptIcon::Question, PromptButtons::YesNo), PromptAnswer::No);
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
