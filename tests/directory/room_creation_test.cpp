#include "directory_fixture.h"
#include "support/composed.h"

namespace {

TEST_F(Directory, ControlsHaveNamesAndPlacesOfTheirOwn)
{
    browse([&] {
        click(u"Lounge"_s);
        expectComposed(*window);
        createWith([](frmNewChat &dialog) { expectComposed(dialog); });
    });
}

TEST_F(Directory, Creates)
{
    const std::tuple<QString, QString, bool> cases[] = {
        // the answer, the box that comes, and whether the window closes
        {uR"(<ACC r="109"/>)"_s, {}, false},
        {u"<CHL/>"_s, {}, false},
        {uR"(<ACC r="7"/>)"_s, u"Trouble creating room!  Please try again. R=7"_s, false},
        {{}, u"Trouble creating room!  Please try again."_s, false},
        {uR"(<ACC r="0" cid="31"/>)"_s, {}, true},
    };
    browse([&] {
        click(u"Lounge"_s);
        for (const auto &[payload, box, closes] : cases) {
            answer(u"<CREATECHANNEL"_s, payload);
            prompts.boxes.clear();
            createWith([](frmNewChat &dialog) { create(dialog, u"  my \"den\" "_s); });
            EXPECT_EQ(messenger.requests.last(), uR"(<CREATECHANNEL g="1" nm="  my "den" " ty="2"/>)"_s);
            EXPECT_EQ(prompts.boxes, errorBox(box));
            EXPECT_EQ(window->isVisible(), !closes);
        }
    });
    EXPECT_EQ(roomState(), u"31 own in Lounge:   my \"den\" "_s);
}

TEST_F(Directory, CreatesNothingForOneWhoStays)
{
    beInRoom(true);
    prompts.answer = PromptAnswer::No;
    browse([this] {
        click(u"Lounge"_s);
        createWith([](frmNewChat & /*dialog*/) {});
        EXPECT_TRUE(prompts.boxes.isEmpty()) << "cancelled";
        createWith([](frmNewChat &dialog) { create(dialog, u"den"_s); });
        EXPECT_EQ(prompts.boxes,
                  QStringList{u"Question: Close Room: Do you really wish to close your room?"_s});
        EXPECT_TRUE(asked(u"CREATE"_s).isEmpty() && state.CurrentRoomID == 5);
    });
}

TEST_F(Directory, AsksForTheDetailsOfARoom)
{
    browse([this] {
        QStringList help;
        QObject::connect(window, &TitledWindow::helpRequested,
                         [&](const QString &anchor) { help += anchor; });
        click(u"Lounge"_s);
        createWith([this](frmNewChat &dialog) {
            auto *name = dialog.findChild<QLineEdit *>(u"txtRoom"_s);
            auto *isPrivate = dialog.findChild<QCheckBox *>(u"chkPrivate"_s);
            auto *ok = dialog.findChild<SkinButton *>(u"smdOk"_s);
            EXPECT_FALSE(ok->isEnabled());
            pressKey(dialog, Qt::Key_F1);
            name->insert(u"a\x03"_s + QString(100, u'c'));
            EXPECT_EQ(name->text(), QString(u'a' + QString(48, u'c')));
            name->setFocus();
            pressKey(*name, Qt::Key_Return, u"\r"_s);
            EXPECT_EQ(dialog.focusWidget(), isPrivate);
            pressKey(*isPrivate, Qt::Key_Enter, u"\r"_s);
            EXPECT_EQ(dialog.focusWidget(), ok);
            name->clear();
            EXPECT_FALSE(ok->isEnabled());
            ok->setEnabled(true); // no way leads here but this one
            ok->click();
            EXPECT_EQ(prompts.boxes, QStringList{u"Stop: Room name: Please enter a room name!"_s});
            EXPECT_TRUE(dialog.isVisible() && dialog.focusWidget() == name);
        });
        EXPECT_EQ(help, QStringList{u"chat_new"_s});
        createWith([this](const frmNewChat &dialog) {
            window->close();
            EXPECT_FALSE(dialog.isVisible()) << "it goes with the directory";
        });
        EXPECT_TRUE(asked(u"CREATE"_s).isEmpty()) << "closing it is cancelling it";
    });
}

} // namespace
