#include "messenger/options.h"

#include <QCommandLineParser>

#include <limits>

namespace {

/// The numbers are read here and not in a table of the parser, since only their limits differ.
template <typename Number>
void readNumber(const QCommandLineParser &parser, const QString &option, qlonglong most, Number &into,
                QString &error)
{
    if (!parser.isSet(option)) {
        return;
    }
    bool isNumber = false;
    const qlonglong number = parser.value(option).toLongLong(&isNumber);
    if (!isNumber || number < 0 || number > most) {
        error = QStringLiteral("--%1 needs a number from 0 to %2, not \"%3\"")
                    .arg(option, QString::number(most), parser.value(option));
        return;
    }
    into = static_cast<Number>(number);
}

void declare(QCommandLineParser &parser)
{
    const auto flag = [&](QStringView name) { parser.addOption(QCommandLineOption(name.toString())); };
    const auto valued = [&](QStringView name) {
        parser.addOption(QCommandLineOption(name.toString(), QString(), QStringLiteral("value")));
    };
    flag(u"help");
    flag(u"version");
    flag(u"verbose");
    for (const QStringView name : {u"port", u"home", u"users", u"guests", u"seed", u"skin"}) {
        valued(name);
    }
}

} // namespace

ParsedArguments parseArguments(const QStringList &arguments)
{
    QCommandLineParser parser;
    declare(parser);
    ParsedArguments parsed;
    if (!parser.parse(QStringList(QStringLiteral("pylox-messenger")) + arguments)) {
        parsed.error = parser.errorText();
        return parsed;
    }
    if (!parser.positionalArguments().isEmpty()) {
        parsed.error = QStringLiteral("\"%1\" is no option").arg(parser.positionalArguments().first());
        return parsed;
    }
    MessengerOptions &options = parsed.options;
    const auto is = [&](QStringView name) { return parser.isSet(name.toString()); };
    const auto text = [&](QStringView name) { return parser.value(name.toString()); };
    parsed.help = is(u"help");
    parsed.version = is(u"version");
    options.verbose = is(u"verbose");
    options.home = text(u"home");
    options.usersFile = text(u"users");
    options.skin = text(u"skin");
    constexpr auto mostSeed = std::numeric_limits<quint32>::max();
    readNumber(parser, QStringLiteral("port"), 65535, options.port, parsed.error);
    readNumber(parser, QStringLiteral("guests"), maximumGuests, options.guests, parsed.error);
    readNumber(parser, QStringLiteral("seed"), mostSeed, options.seed, parsed.error);
    return parsed;
}

QString usageText()
{
    return QStringLiteral(
        "Usage: pylox-messenger [options]\n"
        "Plays the messenger for Pylox Chat clients on this machine.\n"
        "\n"
        "  --port N      listen on this port of 127.0.0.1 (default: a free one)\n"
        "  --home DIR    the application folder, where Pylox.ini lies\n"
        "  --users FILE  the users that clients are: id, nickname, status and mood, with tabs between them\n"
        "  --guests N    people the rooms with this many scripted guests (default: 0)\n"
        "  --seed N      with the same seed the guests do the same (default: 1)\n"
        "  --skin SKIN   the skin that clients are told to use: a file, or a name like Dark\n"
        "  --verbose     log every message in and out on standard error\n"
        "  --help        print this and end\n"
        "  --version     print the version and end\n"
        "\n"
        "Commands are read from standard input; \"help\" lists them.\n");
}
