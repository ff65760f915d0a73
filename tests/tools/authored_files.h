#pragma once

#include "platform/skin_archive.h"
#include "support/text.h"
#include "tools/skin/commands.h"
#include "tools/skin/skin_packing.h"
#include "tools/skin/skin_template.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <functional>
#include <sstream>

inline QByteArray encoded(const QImage &image, const char *format = "png")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

inline QByteArray plain(QSize size, QRgb colour = 0xFFFFFFFF, const char *format = "png")
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return encoded(image, format);
}

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

inline void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

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
