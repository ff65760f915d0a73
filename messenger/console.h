#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

namespace messenger {

class World;

/// The commands that an operator types: what a real messenger would do on its own, done by hand.
class Console
{
public:
    Console(World &world, std::function<void()> quit) : m_world(world), m_quit(std::move(quit)) {}

    /// What is to be printed, without a line end; empty for a command that was carried out in silence and
    /// for an empty line. A text or a name is the rest of its line.
    QString run(const QString &line);

    /// Where a skin that is named without a path is looked for; see findSkin().
    void setSkinFolders(const QStringList &folders) { m_skinFolders = folders; }

private:
    struct Entry;
    static const Entry table[];

    QString help(const QStringList &words);
    QString users(const QStringList &words);
    QString rooms(const QStringList &words);
    QString skin(const QStringList &words);
    QString offline(const QStringList &words);
    QString online(const QStringList &words);
    QString closeRoom(const QStringList &words);
    QString kick(const QStringList &words);
    QString say(const QStringList &words);
    QString whisper(const QStringList &words);
    QString status(const QStringList &words);
    QString rename(const QStringList &words);
    QString quit(const QStringList &words);

    [[nodiscard]] QString companionOf(const QString &id) const;

    World &m_world;
    std::function<void()> m_quit;
    QStringList m_skinFolders;
};

} // namespace messenger
