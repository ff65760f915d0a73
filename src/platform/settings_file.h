#pragma once

#include <QList>
#include <QString>

struct SettingsValue
{
    QString key;
    QString value;
};

/// The messenger's settings file: sections of key=value lines. The messenger writes it too, so every
/// operation goes to the file itself, a lock file beside it keeps two writers apart, and comments, order and
/// unknown keys are kept. Keys and sections are compared without regard to case.
class SettingsFile
{
public:
    /// The value, or the default when the file, the section or the key is missing.
    [[nodiscard]] QString ReadValue(const QString &key, const QString &defaultValue,
                                    const QString &section) const;

    /// Names are made harmless first: line ends, "]" and "=" become "_". False when the file cannot be
    /// written.
    bool WriteValue(const QString &key, const QString &value, const QString &section);
    /// Several at once, for the time of one.
    bool WriteValues(const QList<SettingsValue> &values, const QString &section);

    QString FileName; ///< full path
    int Mode = 0; ///< kept for the messenger's settings component, which asks for 512; nothing here reads it
};
