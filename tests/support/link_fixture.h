#pragma once

#include "core/clsMyApp.h"
#include "core/command_line.h"
#include "core/shared_state.h"
#include "link/frmComms.h"
#include "platform/settings_file.h"
#include "platform/skinnable.h"
#include "support/fake_clock.h"
#include "support/fake_prompts.h"
#include "support/scripted_messenger.h"
#include "support/text.h"

#include <QTemporaryDir>

/// A link with all it needs, and a scripted messenger at the other end of a real socket.
struct LinkFixture : testing::Test
{
    LinkFixture() { settings.FileName = folder.filePath(QStringLiteral("Pylox.ini")); }

    [[nodiscard]] bool connectTo(const QString &portText)
    {
        return link.ConnectToClient(CommandLine(QStringList{u"-port" + portText + u'~'}));
    }

    /// Connects the link to the scripted messenger.
    void connectLink()
    {
        ASSERT_TRUE(connectTo(QString::number(messenger.port())));
        ASSERT_TRUE(eventually([this] { return messenger.hasClient(); }));
    }

    /// A whole message that nobody asked for.
    static QString event(const QString &payload) { return u"<MSG><V mk=\"MSG\"/>" + payload + u"</MSG>"; }
    /// The answer to a request, with the request's own key.
    static QString reply(const QString &payload) { return u"<MSG><V mk=\"{key}\"/>" + payload + u"</MSG>"; }

    QTemporaryDir folder;
    SharedState state;
    clsMyApp myApp{folder.path()};
    SettingsFile settings;
    LoadedWindows windows;
    FakePrompts prompts;
    FakeClock clock;
    ScriptedMessenger messenger;
    frmComms link{state, myApp, settings, windows, prompts, clock};
};
