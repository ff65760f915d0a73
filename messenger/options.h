#pragma once

#include <QString>
#include <QStringList>

/// What the companion is started with.
struct MessengerOptions
{
    quint16 port = 0;     ///< 0 takes a free one
    QString home;         ///< the application folder; empty is the program's own choice
    QString usersFile;    ///< empty is the built-in table of users
    int guests = 0;       ///< how many scripted guests people the rooms
    quint32 seed = 1;     ///< with the same seed the guests do the same
    QString skin;         ///< path of the skin file, or the name of one that is there; empty is Light
    bool verbose = false; ///< every message in and out is logged on standard error
};

/// A command line as it was understood. With an error the rest is not to be used.
struct ParsedArguments
{
    MessengerOptions options;
    QString error; ///< empty when the arguments are right
    bool help = false;
    bool version = false;
};

inline constexpr int maximumGuests = 5000;

/// The arguments without the program's own path.
[[nodiscard]] ParsedArguments parseArguments(const QStringList &arguments);

/// What --help prints, with a line end.
[[nodiscard]] QString usageText();
