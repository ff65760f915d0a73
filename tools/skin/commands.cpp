#include "tools/skin/commands.h"

#include "platform/skin_error.h"
#include "platform/text_file.h"
#include "platform/whole_file.h"
#include "tools/skin/preview.h"
#include "tools/skin/skin_check.h"
#include "tools/skin/skin_packing.h"
#include "tools/skin/skin_reference.h"
#include "tools/skin/skin_template.h"

#include <algorithm>
#include <ostream>

namespace {

constexpr char usage[] =
    R"(Usage: pylox-skin COMMAND

  check SKIN                 looks the skin through and says what is wrong with it
  pack FOLDER FILE.skn       makes a skin file of skin.toml and the pictures that it names
  unpack FILE.skn FOLDER     makes a folder of a skin file
  preview SKIN FILE.png      draws the skin's windows, buttons, colours and icons as one picture
      --scale 1|1.5|2        for screens with that many pixels for one; 1 unless it is said
  new FOLDER                 writes a plain skin to begin with; every key is explained in its skin.toml
  keys [FILE.md]             prints the reference of all keys, or writes it anew between the marks of the file

SKIN is a skin file or a folder with a skin.toml; FOLDER of unpack and new must be empty or not there yet.
pylox-skin --help prints this, pylox-skin --version the version.
The program ends with 0 when all is well (warnings may have been printed), with 1 when the skin has errors or the
command failed, and with 2 for a command line that it does not understand.
)";

struct Streams
{
    std::ostream &out;
    std::ostream &errors;
};

std::string counted(std::ptrdiff_t count, const char *what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

void print(std::ostream &out, const QString &file, const Finding &finding)
{
    out << file.toStdString() << ':';
    if (finding.place.line > 0) {
        out << finding.place.line << ':' << finding.place.column << ':';
    }
    out << (finding.severity == Severity::Error ? " error: " : " warning: ") << finding.text.toStdString()
        << '\n';
}

ExitCode check(const QStringList &operands, const Streams &streams)
{
    const std::vector<Finding> findings = checkSkin(operands[0]);
    for (const Finding &finding : findings) {
        print(streams.out, nameInFindings(operands[0]), finding);
    }
    const auto errors = std::ranges::count(findings, Severity::Error, &Finding::severity);
    const auto warnings = std::ranges::count(findings, Severity::Warning, &Finding::severity);
    streams.out << operands[0].toStdString() << ": "
                << (findings.empty() ? "no problem found"
                                     : counted(errors, "error") + ", " + counted(warnings, "warning"))
                << '\n';
    return errors == 0 ? ExitCode::Good : ExitCode::Bad;
}

ExitCode pack(const QStringList &operands, const Streams &streams)
{
    for (const QString &name : packSkin(operands[0], operands[1])) {
        streams.errors << "pylox-skin: warning: " << printable(name).toStdString() << " is not there\n";
    }
    return ExitCode::Good;
}

ExitCode unpack(const QStringList &operands, const Streams & /*streams*/)
{
    unpackSkin(operands[0], operands[1]);
    return ExitCode::Good;
}

ExitCode preview(const QStringList &operands, const Streams &streams)
{
    writePreview(operands[0], operands[1], streams.errors);
    return ExitCode::Good;
}

ExitCode makeNew(const QStringList &operands, const Streams & /*streams*/)
{
    writeSkinFolder(templateSkin(), operands[0]);
    return ExitCode::Good;
}

/// Prints the reference, or writes it into the document that has a place for it.
ExitCode keys(const QStringList &operands, const Streams &streams)
{
    if (operands.isEmpty()) {
        streams.out << keyReference().toStdString();
        return ExitCode::Good;
    }
    const QByteArray document = withKeyReference(readTextFile(operands[0]).value_or(QString())).toUtf8();
    QSaveFile file(operands[0]);
    if (document.isEmpty()) {
        throw SkinError(operands[0], {}, QStringLiteral("there is no document with a place for the keys"));
    }
    if (!file.open(QIODevice::WriteOnly) || file.write(document) != document.size() || !commitWhole(file)) {
        throw SkinError(operands[0], {}, file.errorString());
    }
    return ExitCode::Good;
}

ExitCode help(const QStringList & /*operands*/, const Streams &streams)
{
    streams.out << usage;
    return ExitCode::Good;
}

ExitCode version(const QStringList & /*operands*/, const Streams &streams)
{
    streams.out << "pylox-skin " PYLOX_VERSION "\n";
    return ExitCode::Good;
}

struct Command
{
    QStringView name;
    qsizetype fewest; ///< operands
    qsizetype most;
    bool draws;
    ExitCode (*run)(const QStringList &operands, const Streams &streams);
};
constexpr Command commands[] = {
    {u"check", 1, 1, false, check},    {u"pack", 2, 2, false, pack},         {u"unpack", 2, 2, false, unpack},
    {u"preview", 2, 2, true, preview}, {u"new", 1, 1, true, makeNew},        {u"keys", 0, 1, false, keys},
    {u"--help", 0, 0, false, help},    {u"--version", 0, 0, false, version},
};

const Command *findCommand(const QString &name)
{
    const auto *found = std::ranges::find(commands, name, &Command::name);
    return found == std::end(commands) ? nullptr : found;
}

/// Takes "--scale X" out of the operands.
QString takeScale(QStringList &operands)
{
    const qsizetype at = operands.indexOf(u"--scale");
    if (at < 0) {
        return QStringLiteral("1");
    }
    QString scale = operands.value(at + 1);
    operands.remove(at, std::min(operands.size() - at, qsizetype(2)));
    return scale;
}

QString faultOf(const SkinCommandLine &line)
{
    const Command *command = findCommand(line.command);
    if (command == nullptr) {
        return line.command.isEmpty() ? QStringLiteral("a command is needed")
                                      : QString(u"there is no command \"" % printable(line.command) % u'"');
    }
    if (const auto option = std::ranges::find_if(
            line.operands, [](const QString &operand) { return operand.startsWith(u"--"); });
        option != line.operands.end()) {
        return QString(line.command % u" has no option " % printable(*option));
    }
    if (line.operands.size() < command->fewest || line.operands.size() > command->most) {
        return QStringLiteral("%1 takes %2 %3, not %4")
            .arg(line.command)
            .arg(command->most)
            .arg(command->most == 1 ? u"name" : u"names")
            .arg(line.operands.size());
    }
    return line.scale == u"1" || line.scale == u"1.5" || line.scale == u"2"
               ? QString()
               : QStringLiteral("--scale is 1, 1.5 or 2");
}

} // namespace

SkinCommandLine parseSkinCommandLine(const QStringList &arguments)
{
    SkinCommandLine line;
    line.command = arguments.contains(u"--help") ? QStringLiteral("--help") : arguments.value(0);
    line.operands = line.command == u"--help" ? QStringList() : arguments.mid(1);
    line.scale = line.command == u"preview" ? takeScale(line.operands) : QStringLiteral("1");
    line.error = faultOf(line);
    line.draws = line.error.isEmpty() && findCommand(line.command)->draws;
    return line;
}

ExitCode runSkinCommand(const SkinCommandLine &line, std::ostream &out, std::ostream &errors)
{
    if (!line.error.isEmpty()) {
        errors << "pylox-skin: " << line.error.toStdString() << "\npylox-skin --help lists the commands\n";
        return ExitCode::Usage;
    }
    try {
        return findCommand(line.command)->run(line.operands, {out, errors});
    } catch (const SkinError &error) {
        errors << "pylox-skin: " << error.what() << '\n';
        return ExitCode::Bad;
    }
}
