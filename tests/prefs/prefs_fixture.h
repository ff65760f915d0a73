#pragma once

#include "controls/SkinButton.h"
#include "core/options.h"
#include "core/user_lists.h"
#include "platform/skinnable.h"
#include "platform/text_file.h"
#include "prefs/frmOptions.h"
#include "room/saved_settings.h"
#include "skin/written_skin.h"
#include "support/composed.h"
#include "support/eventually.h"
#include "support/fake_prompts.h"
#include "support/input.h"

/// The preferences of a user, in files, and what dialogs need to change them.
struct PrefsFixture : testing::Test
{
    PrefsFixture()
    {
        skin.change();
        saved.load({}, {u"Some Sans"_s});
    }

    QString file(const QString &name) const
    {
        return readTextFile(QString(written.app.Path() % name)).value_or(QString());
    }

    /// What has been written is the skin, and every window has it.
    void wear()
    {
        written.write();
        ASSERT_TRUE(skin.change());
        windows.changeSkin();
    }

    /// Runs as soon as events go on: inside the dialog that the next step opens.
    template <typename Action>
    static void next(Action action)
    {
        QTimer::singleShot(0, action);
    }

    template <typename Widget>
    static Widget &find(const QWidget &window, const QString &name)
    {
        auto *widget = window.findChild<Widget *>(name);
        EXPECT_NE(widget, nullptr) << qPrintable(name);
        return *widget;
    }
    static void click(const QWidget &window, const QString &name)
    {
        find<QAbstractButton>(window, name).click();
    }

    WrittenSkin written; ///< not there until it is written
    Options options;
    UserLists lists;
    SavedSettings saved{written.app, options, lists};
    SkinInUse skin{written.app, WindowFrame::Skin, [](const QString & /*line*/) {}};
    LoadedWindows windows;
    FakePrompts prompts;
};
