#include "tools/skin/skin_packing.h"

#include "platform/skin_error.h"
#include "platform/skin_storage.h"
#include "skin/skin_catalogue.h"
#include "tools/skin/authored_skin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// A picture once, however it is spelled; false when it is not there.
bool take(std::vector<SkinContent> &contents, const QString &name, SkinFiles &files)
{
    const SkinName inside = skinName(name);
    for (const SkinContent &content : contents) {
        if (content.path == inside.path && inside.fault.isEmpty()) {
            return true;
        }
    }
    const auto bytes = files.read(name);
    if (bytes) {
        contents.push_back({inside.path, *bytes});
    }
    return bytes.has_value();
}

/// Reads everything as the program does, which throws when it is refused.
void tryOpening(const std::vector<SkinContent> &contents, const QString &name)
{
    SkinStorage storage;
    storage.openBytes(skinArchive(contents), name);
    for (const SkinSection &section : skinCatalogue()) {
        storage.SetSection(section.name.toString());
        for (const SkinKey &key : section.keys) {
            static_cast<void>(storage.GetValue(key.name.toString(), SkinType::Object));
        }
    }
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
        file.write(bytes) != bytes.size() || !file.flush()) {
        throw SkinError(path, {}, QString(u"cannot be written: " % file.errorString()));
    }
}

} // namespace

QStringList packSkin(const QString &folder, const QString &file)
{
    AuthoredSkin skin(folder);
    std::vector<SkinContent> contents{{QString::fromUtf16(skinTomlName), skin.toml()}};
    QStringList missing;
    for (const QString &name : skin.pictureNames()) {
        if (!take(contents, name, skin.files())) {
            missing += name;
        } else {
            take(contents, fineNameOf(name), skin.files());
        }
    }
    tryOpening(contents, file);
    writeSkinArchive(std::move(contents), file);
    return missing;
}

void unpackSkin(const QString &file, const QString &folder)
{
    SkinFiles files(file);
    std::vector<SkinContent> contents;
    for (const SkinEntry &entry : files.entries()) {
        contents.push_back({entry.path, files.read(entry.path).value_or(QByteArray())});
    }
    writeSkinFolder(contents, folder);
}

void writeSkinFolder(const std::vector<SkinContent> &contents, const QString &folder)
{
    const QDir place(folder);
    if (QFileInfo::exists(folder) &&
        (!QFileInfo(folder).isDir() ||
         !place.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))) {
        throw SkinError(folder, {}, QStringLiteral("is not empty: name a new folder"));
    }
    try {
        for (const SkinContent &content : contents) {
            writeFile(place.filePath(content.path), content.bytes);
        }
    } catch (const SkinError &) {
        QDir(place).removeRecursively(); // it was empty: all that is in it was written here
        throw;
    }
}
