#pragma once

#include <QStringList>

#include <iosfwd>

/// How the program ends.
enum class ExitCode : int
{
    Good = 0,
    Bad = 1,   ///< the skin has errors, or the command could not be carried out
    Usage = 2, ///< the command line makes no sense
};

/// A command line, without the program's name, and what it says.
struct SkinCommandLine
{
    QString command;
    QStringList operands; ///< as many as the command takes
    QString scale;        ///< of the preview
    bool draws = false;   ///< whether a QApplication is needed, not only a QCoreApplication
    QString error;        ///< empty when the command line makes sense
};
[[nodiscard]] SkinCommandLine parseSkinCommandLine(const QStringList &arguments);

/// Carries the command out.
[[nodiscard]] ExitCode runSkinCommand(const SkinCommandLine &line, std::ostream &out, std::ostream &errors);
