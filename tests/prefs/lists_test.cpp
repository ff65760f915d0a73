#include "prefs/frmAddUser.h"
#include "prefs/frmIgnore.h"
#include "prefs/prefs_fixture.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTreeWidget>

namespace {

struct ListsDialog : PrefsFixture
{
    ListsDialog()
    {
        lists.IgnoreList += {{u"7"_s, u"Ann"_s}, {QString(), u"gone"_s}, {u"8"_s, u"B\u202Eo\nb"_s}};
        lists.AcceptList += {{u"9"_s, u"Cid"_s}};
        lists.PyloxContacts = {{u"5"_s, u"Dora"_s}};
        show(u'I');
    }

    /// Without the loop of a modal dialog, which goes on in events.
    void show(char16_t code)
    {
        next([this] { dialog->hide(); });
        dialog->ShowList(code);
        dialog->show();
    }

    QStringList rows() const
    {
        QStringList texts;
        for (int i = 0; i < list.topLevelItemCount(); ++i) {
            texts += QString(list.topLevelItem(i)->text(0) % u' ' % list.topLevelItem(i)->text(1));
        }
        return texts;
    }

    void add(const QString &id, const QString &name)
    {
        next([&] {
            auto &asking = find<frmAddUser>(*dialog, u"frmAddUser"_s);
            auto &box = find<QLineEdit>(asking, u"txtId"_s);
            if (!id.isEmpty()) { // to insert nothing is a change all the same
                box.insert(id);
            }
            find<QLineEdit>(asking, u"txtName"_s).insert(name);
            pressKey(box, Qt::Key_Return);
            EXPECT_EQ(asking.isVisible(), id.trimmed().isEmpty()) << "without an id there is no Ok";
            asking.close(); // unless it has been
        });
        click(*dialog, u"smdAdd"_s);
    }

    std::unique_ptr<frmIgnore> dialog =
        std::make_unique<frmIgnore>(WindowDress{skin, windows}, lists, saved, prompts, nullptr);
    QTreeWidget &list = *dialog->findChild<QTreeWidget *>(u"lvList"_s);
};

TEST_F(ListsDialog, ShowsTheChosenListWithoutRemovedUsers)
{
    const QStringList ignored = {u"7 Ann"_s, u"8 Bo b"_s};
    EXPECT_EQ(rows(), ignored) << "on one line, without what cannot be seen";
    click(*dialog, u"optType_1"_s);
    EXPECT_EQ(rows(), QStringList{u"9 Cid"_s});
    click(*dialog, u"optType_0"_s);
    EXPECT_EQ(rows(), ignored);
    show(u'P');
    EXPECT_TRUE(rows().isEmpty()) << "the contacts are shown nowhere here";
}

TEST_F(ListsDialog, RemovesTheSelectedUserAfterAQuestion)
{
    click(*dialog, u"smdRemove"_s);
    EXPECT_TRUE(prompts.boxes.isEmpty()) << "nobody is selected";

    list.setCurrentItem(list.topLevelItem(1));
    prompts.answer = PromptAnswer::No;
    click(*dialog, u"smdRemove"_s);
    EXPECT_EQ(prompts.boxes,
              QStringList{u"Question: Remove User: Do you really wish to remove this user from "
                          "your list?"_s});
    EXPECT_EQ(rows().size(), 2);

    prompts.answer = PromptAnswer::Yes;
    click(*dialog, u"smdRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"7 Ann"_s});
    EXPECT_FALSE(IsInList(lists.IgnoreList, u"8"_s));
    EXPECT_EQ(lists.IgnoreList.size(), 4) << "the slot stays";

    prompts.whileOpen = [this] { dialog.reset(); }; // the program ends
    click(*dialog, u"smdRemove"_s);
    EXPECT_EQ(dialog, nullptr);
    EXPECT_TRUE(IsInList(lists.IgnoreList, u"7"_s));
}

TEST_F(ListsDialog, OnlyOkSavesButChangesHold)
{
    click(*dialog, u"optType_1"_s);
    list.setCurrentItem(list.topLevelItem(0));
    pressKey(list, Qt::Key_Delete);
    click(*dialog, u"smdCancel"_s);
    EXPECT_TRUE(dialog->isHidden());
    EXPECT_FALSE(IsInList(lists.AcceptList, u"9"_s));
    EXPECT_TRUE(file(u"ChatList.dat"_s).isEmpty());

    show(u'I');
    pressKey(list, Qt::Key_Return);
    EXPECT_TRUE(dialog->isHidden());
    EXPECT_EQ(file(u"ChatList.dat"_s),
              u"I-7          Ann\r\nI-8          B\u202Eo b\r\nP-5          Dora\r\n"_s);
}

TEST_F(ListsDialog, AddsAUserByHand)
{
    const std::tuple<QString, QString, QString, qsizetype> cases[] = {
        // id, name, the row that is selected afterwards, how many there are then
        {u""_s, u"Nobody"_s, {}, 2},
        {u"  \t "_s, u"Nobody"_s, {}, 2},
        {u" 12 "_s, u" Eve\u0003 "_s, u"12 Eve"_s, 3},
        {u"7"_s, u"Another"_s, u"7 Ann"_s, 3}, // the first name stays
        {u"12345678901"_s, u"Long"_s, u"1234567890 Long"_s, 4},
        {u"5"_s, {}, u"5 Dora"_s, 5}, // a contact
        {u"6"_s, {}, u"6 "_s, 6},
    };
    for (const auto &[id, name, row, rows] : cases) {
        add(id, name);
        const QTreeWidgetItem *chosen = list.selectedItems().value(0);
        EXPECT_EQ(chosen == nullptr ? QString() : QString(chosen->text(0) % u' ' % chosen->text(1)), row);
        EXPECT_EQ(list.topLevelItemCount(), rows) << qPrintable(row);
    }
    EXPECT_EQ(lists.IgnoreList.last(), (ListedUser{u"6"_s, QString()}));

    click(*dialog, u"optType_1"_s);
    add(u"7"_s, u"Ann"_s);
    EXPECT_EQ(lists.AcceptList.last(), (ListedUser{u"7"_s, u"Ann"_s})) << "on the list that is shown";

    next([this] { dialog->close(); });
    click(*dialog, u"smdAdd"_s);
    EXPECT_EQ(dialog->findChild<frmAddUser *>(), nullptr) << "it goes with the dialog below it";
}

TEST_F(ListsDialog, ButtonsHaveSignsWhereTheSkinHasPicturesForThem)
{
    const auto captions = [this] {
        expectComposed(*dialog);
        return QString(find<SkinButton>(*dialog, u"smdAdd"_s).Caption() % u' ' %
                       find<SkinButton>(*dialog, u"smdRemove"_s).Caption());
    };
    list.setCurrentItem(list.topLevelItem(1));
    EXPECT_EQ(captions(), u"Add Remove"_s);
    written.set(u"Default Button"_s, u"Normal Button"_s, plain({80, 24}, 0xFF204060));
    wear();
    EXPECT_EQ(captions(), u"Add Remove"_s);
    EXPECT_EQ(find<QWidget>(*dialog, u"smdAdd"_s).size(), QSize(80, 24));

    written.set(u"Chat Rooms"_s, u"Normal BIU Button"_s, plain({26, 25}, 0xFF603020));
    written.set(u"Chat Rooms"_s, u"Down BIU Button"_s, plain({26, 25}, 0xFF102030));
    written.set(u"Chat Rooms"_s, u"Mask BIU Button"_s, plain({13, 25}, 0xFF000000));
    wear();
    EXPECT_EQ(captions(), u"+ -"_s);
    const auto &add = find<SkinButton>(*dialog, u"smdAdd"_s);
    EXPECT_EQ(add.size(), QSize(26, 25));
    EXPECT_EQ(add.mask().boundingRect().width(), 13);
    EXPECT_FALSE(add.canLatch());
    EXPECT_EQ(add.accessibleName(), u"Add"_s);
    EXPECT_EQ(list.selectedItems().size(), 1) << "what was selected stays so";
}

TEST_F(ListsDialog, IsQuickWithThousandsOfUsers)
{
    for (int i = 0; i < 10000; ++i) {
        lists.IgnoreList.append({QString::number(100000 + i), u"Somebody"_s});
    }
    QElapsedTimer clock;
    clock.start();
    show(u'I');
    list.setCurrentItem(list.topLevelItem(9000));
    click(*dialog, u"smdRemove"_s);
    add(u"3"_s, u"Last"_s);
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(rows().last(), u"3 Last"_s);
}

} // namespace
