#pragma once

#include <QByteArray>
#include <QString>
#include <QStringConverter>

/// The 8-bit code page in which text travels to and from the messenger. Converting never fails: bytes that
/// mean nothing become the replacement character, characters that the code page lacks become "?".
class CodePage
{
public:
    /// windows-1252
    CodePage() : CodePage(QStringLiteral("windows-1252")) {}

    /// A code page by its usual name ("windows-1252", "utf-8" …); windows-1252 when the name is
    /// not known or when ASCII is not part of the page.
    explicit CodePage(const QString &name);

    [[nodiscard]] QString decode(QByteArrayView bytes) const;
    [[nodiscard]] QByteArray encode(QStringView text) const;

private:
    QByteArray m_name;
};
