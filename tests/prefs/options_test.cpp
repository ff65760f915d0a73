#include "prefs/frmIgnore.h"
#include "prefs/prefs_fixture.h"
#include "prefs/swatch.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMouseEvent>
#include <QTreeWidget>

namespace {

struct OptionsDialog : PrefsFixture
{
    OptionsDialog()
    {
        // Skin "skin": the options file is "skin ChatOpt.dat".
        options.IGNORECOL = true;
        options.SNORMAL = 0x80000008; // a system colour
        QObject::connect(&dialog(), &frmOptions::optionsChanged, [this] { ++changes; });
    }

    /// The one that is open, else a new one.
    frmOptions &dialog()
    {
        if (!m_dialog || m_dialog->isHidden()) {
            m_dialog.reset(); // before the next one enters the list of windows
            m_dialog =
                std::make_unique<frmOptions>(WindowDress{skin, windows}, Preferences{options, lists, saved},
                                             ComposeFont{u"Serif"_s, 11}, prompts, nullptr);
            m_dialog->show();
        }
        return *m_dialog;
    }

    QString ok()
    {
        click(dialog(), u"smdOk"_s);
        EXPECT_TRUE(m_dialog->isHidden());
        return file(u"skin ChatOpt.dat"_s);
    }

    bool showsColours()
    {
        const bool shown = find<QWidget>(dialog(), u"picColours"_s).isVisible();
        EXPECT_NE(shown, find<QWidget>(dialog(), u"picNormal"_s).isVisible());
        EXPECT_EQ(find<SkinButton>(dialog(), u"smcType_1"_s).Down(), shown);
        EXPECT_NE(find<SkinButton>(dialog(), u"smcType_0"_s).Down(), shown);
        return shown;
    }

    int changes = 0;

private:
    std::unique_ptr<frmOptions> m_dialog;
};

/// A control, its name as assistive programs have it, empty where none is needed, and the line of the file
/// once the control has been used.
const std::tuple<QString, QString, QString> controls[] = {
    {u"lblColour_0"_s, u"My username text colour"_s, u"UNTC         197121"_s},
    {u"lblColour_1"_s, u"My username background colour"_s, u"UNBC         197121"_s},
    {u"lblColour_2"_s, u"My messages text colour"_s, u"MMTC         197121"_s},
    {u"lblColour_3"_s, u"My messages background colour"_s, u"MMBC         197121"_s},
    {u"lblColour_4"_s, u"Chatters name text colour"_s, u"CNTC         197121"_s},
    {u"lblColour_5"_s, u"Chatters name background colour"_s, u"CNBC         197121"_s},
    {u"lblColour_6"_s, u"Chatters messages text colour"_s, u"CMTC         197121"_s},
    {u"lblColour_7"_s, u"Chatters messages background colour"_s, u"CMBC         197121"_s},
    {u"lblColour_8"_s, u"Emotions text colour"_s, u"EMTC         197121"_s},
    {u"lblColour_9"_s, u"Emotions background colour"_s, u"EMBC         197121"_s},
    {u"lblColour_10"_s, u"Normal notice"_s, u"SNORMAL      197121"_s},
    {u"lblColour_11"_s, u"Warning notice"_s, u"SWARNING     197121"_s},
    {u"lblColour_12"_s, u"Error notice"_s, u"SERROR       197121"_s},
    {u"lblColour_13"_s, u"Highlight"_s, u"HIGHLIGHT    197121"_s},
    {u"chkEmoticons"_s, u"Use Emoticons"_s, u"EMOTICONS    False"_s},
    {u"chkIgnoreColours"_s, u"Ignore Color & Styles"_s, u"IGNORECOL    False"_s},
    {u"chkLeave"_s, u"Tell me when people enter/leave room"_s, u"DPINOUT      False"_s},
    {u"chkPyloxUsers"_s, u"Tell me when my Pylox users are online"_s, u"DDUSERS      False"_s},
    {u"optWordFilter_1"_s, u"Cleaner"_s, u"WORDFILER    1"_s},
    {u"optWordFilter_2"_s, u"Cleanest"_s, u"WORDFILER    2"_s},
    {u"lblWordFilter_2"_s, u""_s, u"WORDFILER    2"_s},
    {u"lblInfo_1"_s, u""_s, u"EMOTICONS    False"_s},
    {u"cmbAccept"_s, u"Accept new users"_s, u"ACCEPTUSER   3"_s},
};

TEST_F(OptionsDialog, EveryControlChangesItsOwnOptionAndNoOther)
{
    const Options before = options;
    const QStringList unchanged = ok().split(u"\r\n"_s);
    prompts.colour = 0x030201;
    for (const auto &[name, heard, line] : controls) {
        options = before;
        QWidget &control = find<QWidget>(dialog(), name);
        EXPECT_EQ(control.accessibleName(), heard);
        if (auto *box = qobject_cast<QComboBox *>(&control)) {
            box->setCurrentIndex(3);
        } else if (qobject_cast<QLabel *>(&control) != nullptr) {
            clickAt(control, {2, 2});
        } else {
            click(dialog(), name);
        }
        QStringList changed = ok().split(u"\r\n"_s);
        for (const QString &same : unchanged) {
            changed.removeOne(same);
        }
        EXPECT_EQ(changed, QStringList{line}) << qPrintable(name);
    }
    EXPECT_EQ(changes, 1 /* with the first dialog only */);
}

TEST_F(OptionsDialog, OkWithoutChangesKeepsWhatItShows)
{
    options.WORDFILER = 5;
    options.AcceptMode = static_cast<enum AcceptMode>(200);
    dialog().close();
    EXPECT_EQ(find<QComboBox>(dialog(), u"cmbAccept"_s).currentText(), u"Manual"_s);
    options.SHOWEMOTIONS = false; // elsewhere, meanwhile
    const QString text = ok();
    for (const QString &line : {u"WORDFILER    2"_s, u"ACCEPTUSER   0"_s, u"SNORMAL      -2147483640"_s,
                                u"SHOWEMOTIONS False"_s, u"FONTNAME     Serif"_s}) {
        EXPECT_TRUE(text.contains(line)) << qPrintable(line);
    }
}

TEST_F(OptionsDialog, OnlyOkChangesAnything)
{
    prompts.colour = 7;
    const auto use = [this] {
        click(dialog(), u"lblColour_0"_s);
        click(dialog(), u"chkEmoticons"_s);
    };
    const std::function<void()> ways[] = {[this] { click(dialog(), u"smdCancel"_s); },
                                          [this] { click(dialog(), u"sysClose"_s); },
                                          [this] { pressKey(dialog(), Qt::Key_Escape); }};
    for (const auto &leave : ways) {
        use();
        leave();
    }
    EXPECT_TRUE(options.EMOTICONS && options.UNTC != 7 && changes == 0);
    EXPECT_TRUE(file(u"skin ChatOpt.dat"_s).isEmpty());

    use();
    ASSERT_TRUE(QDir(written.app.Path()).mkdir(u"skin ChatOpt.dat"_s)); // it cannot be written
    pressKey(find<QWidget>(dialog(), u"cmbAccept"_s), Qt::Key_Return);
    EXPECT_TRUE(!options.EMOTICONS && options.UNTC == 7) << "what cannot be saved holds all the same";
    EXPECT_EQ(prompts.boxes.filter(u"Color"_s).size(), prompts.boxes.size()) << "in silence";
}

TEST_F(OptionsDialog, SwatchesArePressedByKeysAndShowWhatTheyAre)
{
    options.SWARNING = 0x112233;
    dialog().close();
    auto &swatch = find<Swatch>(dialog(), u"lblColour_11"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&swatch)->role(), QAccessible::Button);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&swatch)->text(QAccessible::Description), u"#332211"_s);
    EXPECT_NE(swatch.focusPolicy() & Qt::TabFocus, 0);
    EXPECT_EQ(swatch.grab().toImage().pixelColor(swatch.rect().center()), QColor(0x33, 0x22, 0x11));
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        prompts.boxes.clear();
        pressKey(swatch, key);
        EXPECT_TRUE(eventually([&] { return prompts.boxes == QStringList{u"Color: 1122867"_s}; }));
        EXPECT_EQ(swatch.colour(), 0x112233U) << "Cancel";
    }
    const ColourValue ink = SystemColours(QApplication::palette()).at(8);
    click(dialog(), u"lblColour_10"_s);
    EXPECT_EQ(prompts.boxes.last(), QString(u"Color: " % QString::number(ink)))
        << "a system colour, resolved";
}

TEST_F(OptionsDialog, TheFirstPageComesBackWithTheListsAndNotWithAColour)
{
    EXPECT_FALSE(showsColours());
    click(dialog(), u"smcType_1"_s);
    prompts.colour = 7;
    click(dialog(), u"lblColour_0"_s);
    EXPECT_TRUE(showsColours());

    QStringList help;
    QObject::connect(&dialog(), &TitledWindow::helpRequested, [&](const QString &anchor) { help += anchor; });
    bool shown = false;
    next([&] {
        auto &list = find<frmIgnore>(dialog(), u"frmIgnore"_s);
        pressKey(list, Qt::Key_F1);
        shown = list.isVisible() && list.windowModality() == Qt::WindowModal && showsColours();
        click(list, u"smdCancel"_s);
    });
    click(dialog(), u"smdIgnore"_s);
    EXPECT_TRUE(shown);
    EXPECT_FALSE(showsColours());
    pressKey(dialog(), Qt::Key_F1);
    EXPECT_EQ(help, (QStringList{u"chat_lists"_s, u"options"_s}));

    next([&] { dialog().close(); }); // the program ends
    click(dialog(), u"smdIgnore"_s);
}

TEST_F(OptionsDialog, TheKeyboardReachesEverythingInReadingOrder)
{
    const QStringList pages[] = {
        {u"smcType_0"_s, u"smcType_1"_s, u"cmbAccept"_s, u"chkEmoticons"_s, u"chkIgnoreColours"_s,
         u"optWordFilter_0"_s, u"chkLeave"_s, u"chkPyloxUsers"_s, u"smdIgnore"_s, u"smdOk"_s, u"smdCancel"_s},
        {u"smcType_0"_s, u"smcType_1"_s, u"lblColour_0"_s, u"lblColour_1"_s, u"lblColour_2"_s,
         u"lblColour_3"_s, u"lblColour_4"_s, u"lblColour_5"_s, u"lblColour_6"_s, u"lblColour_7"_s,
         u"lblColour_8"_s, u"lblColour_9"_s, u"lblColour_10"_s, u"lblColour_11"_s, u"lblColour_12"_s,
         u"lblColour_13"_s, u"smdIgnore"_s, u"smdOk"_s, u"smdCancel"_s}};
    dialog().activateWindow();
    for (const QStringList &order : pages) {
        click(dialog(), order == pages[0] ? u"smcType_0"_s : u"smcType_1"_s);
        find<QWidget>(dialog(), order.first()).setFocus();
        ASSERT_TRUE(eventually([&] { return find<QWidget>(dialog(), order.first()).hasFocus(); }));
        QStringList reached;
        for (qsizetype i = 0; i < order.size(); ++i) {
            const QWidget *focus = dialog().focusWidget();
            EXPECT_FALSE(focus->accessibleName().isEmpty()) << qPrintable(focus->objectName());
            reached += focus->objectName();
            pressKey(*dialog().focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(reached, order);
    }
}

TEST_F(OptionsDialog, IsComposedWithEveryFontAndSkinAndLosesNothingInBetween)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(12);
    large.setBold(true);
    click(dialog(), u"chkEmoticons"_s);
    const auto look = [this] {
        for (const QString &tab : {u"smcType_0"_s, u"smcType_1"_s}) {
            click(dialog(), tab);
            QCoreApplication::sendPostedEvents();
            expectComposed(dialog());
        }
    };
    look();
    const int width = dialog().width();
    QApplication::setFont(large);
    windows.changeSkin();
    look();
    EXPECT_GT(dialog().width(), width);
    QApplication::setFont(usual);

    for (const QString &state : {u"Normal Button"_s, u"Mask Button"_s}) {
        written.set(u"Default Button"_s, state, plain({40, 20}, 0xFF305070));
    }
    written.set(u"Defaults"_s, u"FormForeColour"_s, u"'#e0e0e0'"_s); // and all grounds are black
    wear();
    look();
    click(dialog(), u"smcType_0"_s);
    find<Swatch>(dialog(), u"lblColour_3"_s).setColour(0);
    for (const QString &dark : {u"chkEmoticons"_s, u"lblColour_3"_s}) {
        const QImage picture = find<QWidget>(dialog(), dark).grab().toImage();
        EXPECT_FALSE(pixelsOf(picture, [](const QColor &c) { return c.lightness() > 70; }).isEmpty())
            << "the edge of what is black on black is seen";
    }
    const auto &button = find<SkinButton>(dialog(), u"smdIgnore"_s);
    EXPECT_GT(button.width(), button.fontMetrics().horizontalAdvance(u"Accept/Ignore"_s));
    EXPECT_EQ(button.picture(ButtonState::Normal, 1).pixelColor(button.width() - 1, 19), QColor(0x305070));
    EXPECT_EQ(button.width(), button.mask().boundingRect().width());
    EXPECT_FALSE(find<QAbstractButton>(dialog(), u"chkEmoticons"_s).isChecked());
}

} // namespace
