#pragma once

#include "platform/skin_archive.h"
#include "support/files.h"
#include "support/pictures.h"
#include "support/text.h"
#include "tools/skin/commands.h"
#include "tools/skin/skin_packing.h"
#include "tools/skin/skin_template.h"

#include <QTemporaryDir>

#include <functional>
#include <sstream>

/// The files of the skin that "new" writes, to be spoilt and written as a folder or an archive.
class AuthoredFiles
{
public:
    AuthoredFiles() : m_files(original()) {}

    QByteArray &file(const QString &path)
    {
        for (SkinContent &content : m_files) {
            if (content.path == path) {
                return content.bytes;
            }
        }
        m_files.push_back({path, {}});
        return m_files.back().bytes;
    }
    QByteArray &toml() { return file(u"skin.toml"_s); }
    void remove(const QString &path)
    {
        std::erase_if(m_files, [&](const SkinContent &content) { return content.path == path; });
    }
    /// The picture alone, without its finer one.
    void draw(const QString &name, const QByteArray &bytes)
    {
        file(u"pictures/"_s + name + u".png") = bytes;
        remove(u"pictures/"_s + name + u"@2x.png");
    }
    void replace(const QByteArray &before, const QByteArray &after)
    {
        EXPECT_TRUE(toml().contains(before)) << before.toStdString();
        toml().replace(before, after);
    }
    /// The whole line that begins so.
    void replaceLine(const QByteArray &start, const QByteArray &after)
    {
        const qsizetype at = toml().indexOf(QByteArray("\n" + start)) + 1;
        EXPECT_GT(at, 0) << start.toStdString();
        toml().replace(at, toml().indexOf('\n', at) - at, after);
    }

    void writeFolder(const QString &folder) const { writeSkinFolder(m_files, folder); }
    [[nodiscard]] QByteArray archive() const { return skinArchive(m_files); }

private:
    static const std::vector<SkinContent> &original()
    {
        static const std::vector<SkinContent> files = templateSkin();
        return files;
    }

    std::vector<SkinContent> m_files;
};

/// What is done to the files before they are written.
using Spoiling = std::function<void(AuthoredFiles &)>;

/// The line of skin.toml with this key becomes this.
inline Spoiling lineTo(const QByteArray &line)
{
    return [=](AuthoredFiles &files) { files.replaceLine(line.first(line.indexOf(" = ")), line); };
}
/// This line stands first in the section of the menu.
inline Spoiling inMenu(const QByteArray &line)
{
    return [=](AuthoredFiles &files) { files.replace("\n[Menu]\n", "\n[Menu]\n" + line + '\n'); };
}
inline Spoiling drawn(const QString &name, const QByteArray &bytes)
{
    return [=](AuthoredFiles &files) { files.draw(name, bytes); };
}
inline Spoiling drawn(const QString &name, int width, int height, QRgb colour = 0xFFFFFFFF)
{
    return [=](AuthoredFiles &files) { files.draw(name, encoded(plain(QSize(width, height), colour))); };
}

/// What a command says and how it ends.
struct Outcome
{
    int code = 0;
    QString out;
    QString errors;
};

inline Outcome run(const QStringList &arguments)
{
    std::ostringstream out;
    std::ostringstream errors;
    const ExitCode code = runSkinCommand(parseSkinCommandLine(arguments), out, errors);
    return {static_cast<int>(code), QString::fromStdString(out.str()), QString::fromStdString(errors.str())};
}
