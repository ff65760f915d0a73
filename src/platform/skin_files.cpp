#include "platform/skin_files.h"

#include "platform/skin_error.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace {

/// The bytes of the file, which may grow while it is read.
QByteArray readWhole(const QString &path, qint64 mostBytes, const QString &file, const QString &place)
{
    const auto refuse = [&](const QString &why) { throw SkinError(file, place, why); };
    QFile input(path);
    if (!QFileInfo(path).isFile()) {
        refuse(QStringLiteral("not a file"));
    }
    if (!input.open(QIODevice::ReadOnly)) {
        refuse(input.errorString());
    }
    QByteArray bytes;
    if (input.size() <= mostBytes) {
        bytes = input.read(mostBytes + 1);
    }
    if (input.size() > mostBytes || bytes.size() > mostBytes) {
        refuse(QStringLiteral("larger than %1 bytes").arg(mostBytes));
    }
    if (input.error() != QFileDevice::NoError) {
        refuse(input.errorString());
    }
    return bytes;
}

std::variant<SkinArchive, SkinFolder> openPlace(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        throw SkinError(path, {}, QStringLiteral("there is no such file"));
    }
    if (info.isDir()) {
        return SkinFolder(path, path);
    }
    if (info.fileName() == skinTomlName) {
        return SkinFolder(info.absolutePath(), path);
    }
    QByteArray bytes = readWhole(path, SkinLimits::bytes, path, {});
    if (bytes.isEmpty()) {
        throw SkinError(path, {}, QStringLiteral("the file is empty"));
    }
    return SkinArchive(std::move(bytes), path);
}

} // namespace

SkinFolder::SkinFolder(const QString &folder, const QString &file)
    : m_root(QFileInfo(folder).canonicalFilePath()), m_file(file)
{
    if (m_root.isEmpty()) {
        throw SkinError(file, {}, QStringLiteral("there is no such folder"));
    }
}

/// Where the path leads when all links are followed; empty when it leads nowhere.
QString SkinFolder::placeOf(const QString &path) const
{
    QString place = QFileInfo(QString(m_root + u'/' + path)).canonicalFilePath();
    const QString inside = m_root.endsWith(u'/') ? m_root : QString(m_root + u'/');
    if (!place.isEmpty() && place != m_root && !place.startsWith(inside)) {
        throw SkinError(m_file, printable(path), QStringLiteral("it lies outside the skin"));
    }
    return place;
}

std::vector<SkinEntry> SkinFolder::entries() const
{
    SkinEntries found(m_file);
    QDirIterator files(m_root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        const QFileInfo info = files.fileInfo();
        const QString path = QDir(m_root).relativeFilePath(files.filePath());
        if (placeOf(path).isEmpty() || (!info.isFile() && !info.isDir())) {
            throw SkinError(m_file, printable(path), QStringLiteral("neither a file nor a folder"));
        }
        found.add(info.isDir() ? QString(path + u'/') : path,
                  info.isDir() ? 0 : static_cast<quint64>(info.size()));
    }
    return found.all();
}

std::optional<QByteArray> SkinFolder::read(const QString &path, qint64 mostBytes) const
{
    const QString place = placeOf(path);
    if (place.isEmpty() || QFileInfo(place).isDir()) {
        return std::nullopt;
    }
    return readWhole(place, mostBytes, m_file, printable(path));
}

SkinFiles::SkinFiles(const QString &path) : m_file(path), m_place(openPlace(path)) {}

SkinFiles::SkinFiles(const QByteArray &archive, const QString &file)
    : m_file(file), m_place(SkinArchive(archive, file))
{}

std::vector<SkinEntry> SkinFiles::entries() const
{
    return std::visit([](const auto &place) -> std::vector<SkinEntry> { return place.entries(); }, m_place);
}

std::optional<QByteArray> SkinFiles::read(const QString &name, qint64 mostBytes)
{
    const SkinName inside = skinName(name);
    if (!inside.fault.isEmpty()) {
        throw SkinError(m_file, printable(name), inside.fault);
    }
    const qint64 most = std::min(mostBytes, m_bytesLeft);
    auto bytes = std::visit([&](const auto &place) { return place.read(inside.path, most); }, m_place);
    m_bytesLeft -= bytes ? bytes->size() : 0;
    return bytes;
}
