#pragma once

#include "controls/SkinButton.h"
#include "core/options.h"
#include "core/user_lists.h"
#include "platform/skinnable.h"
#include "platform/text_file.h"
#include "prefs/frmOptions.h"
#include "room/saved_settings.h"
#include "skin/written_skin.h"
#include "support/eventually.h"
#include "support/fake_prompts.h"

#include <QKeyEvent>

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

    static void press(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers);
            QCoreApplication::sendEvent(&widget, &event);
        }
    }

    /// Runs as soon as events go on: inside the dialog that the next step opens.
    template <typename Action>
    static void next(Action action)
    {
        QTimer::singleShot(0, action);
    }

    /// Everything that the user sees has the room it wants, within its parent and beside its neighbours.
    static void expectComposed(const QWidget &window)
    {
        for (const auto *widget : window.findChildren<QWidget *>()) {
            const QString name = widget->objectName();
            if (!widget->isVisible() || name.isEmpty() || name.startsWith(u"qt_"_s) ||
                name.startsWith(u"skf"_s)) {
                continue;
            }
            const QWidget &parent = *widget->parentWidget();
            EXPECT_TRUE(parent.rect().contains(widget->geometry())) << qPrintable(name);
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << qPrintable(name);
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << qPrintable(name);
            for (const auto *other : parent.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
                const bool beside = other != widget && other->isVisible() && !other->isWindow() &&
                                    !other->objectName().startsWith(u"skf"_s);
                EXPECT_FALSE(beside && other->geometry().intersects(widget->geometry()))
                    << qPrintable(name) << " and " << qPrintable(other->objectName());
            }
        }
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
