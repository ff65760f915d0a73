#include "platform/settings_file.h"

#include "platform/text_file.h"

#include <QFileInfo>

#define SI_NO_CONVERSION // the text is UTF-8 before it comes here
#include <SimpleIni.h>
#include <string>

namespace {

/// A name that cannot end its line or its section.
std::string safeName(const QString &name)
{
    QString safe = name;
    for (QChar &c : safe) {
        if (c < u' ' || c == u']' || c == u'[' || c == u'=') {
            c = u'_';
        }
    }
    return safe.toStdString();
}

std::string oneLine(const QString &value)
{
    QString line = value;
    line.replace(u'\n', u' ').replace(u'\r', u' ');
    return line.toStdString();
}

/// False when there is something under that name that cannot be read as settings.
bool load(CSimpleIniA &ini, const QString &fileName)
{
    const auto text = readTextFile(fileName);
    if (!text) {
        return !QFileInfo::exists(fileName); // one that is there and cannot be read must not be written over
    }
    return ini.LoadData(text->toStdString()) >= 0;
}

} // namespace

QString SettingsFile::ReadValue(const QString &key, const QString &defaultValue, const QString &section) const
{
    CSimpleIniA ini;
    if (!load(ini, FileName)) {
        return defaultValue;
    }
    const char *value = ini.GetValue(safeName(section).c_str(), safeName(key).c_str(), nullptr);
    return value != nullptr ? QString::fromUtf8(value) : defaultValue;
}

bool SettingsFile::WriteValue(const QString &key, const QString &value, const QString &section)
{
    CSimpleIniA ini;
    ini.SetSpaces(false);
    if (!load(ini, FileName)) {
        return false;
    }
    std::string text;
    return ini.SetValue(safeName(section).c_str(), safeName(key).c_str(), oneLine(value).c_str()) >= 0 &&
           ini.Save(text, false) >= 0 && writeTextFile(FileName, QString::fromStdString(text));
}
