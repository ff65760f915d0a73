#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The options of the command line. Each is found by searching the whole line as plain text, so that they
/// come in any order and need no spaces between them: -port5190~-cid42 -cnmLounge~-showcat
class CommandLine
{
public:
    CommandLine() = default;

    /// The arguments without the program's own path.
    explicit CommandLine(const QStringList &arguments) : m_text(arguments.join(u' ')) {}

    /// What stands between "-port" and the next "~"; none without the option, or when nothing stands there.
    [[nodiscard]] std::optional<QString> portText() const;

    /// The number after "-cid" (0 when there is no number); none without the option.
    [[nodiscard]] std::optional<qint32> roomId() const;

    /// What stands between "-cnm" and the next "~", or the rest of the line; empty without the option.
    [[nodiscard]] QString roomName() const;

    [[nodiscard]] bool showCategories() const;

private:
    QString m_text;
};
