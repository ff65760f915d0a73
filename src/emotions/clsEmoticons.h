#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <bitset>

/// One code and the emoticon that it stands for.
struct EmoticonEntry
{
    QString Key;  ///< exactly as typed
    QString Name; ///< the picture's key is "e" and this name
    bool CaseSensitive = false;

    friend bool operator==(const EmoticonEntry &, const EmoticonEntry &) = default;
};

/// The table of emoticons: the built-in codes, and those of the text of an Emoticon.dat behind them. Lookups
/// give the first row that matches.
class clsEmoticons
{
public:
    /// Lines of the text pair up: a code, then its name. Lines whose first character after blanks is "#" are
    /// comments. Nothing in it is an error; a code without a name at the end is dropped.
    explicit clsEmoticons(QStringView emoticonFile = {});

    [[nodiscard]] qint32 RowCount() const { return static_cast<qint32>(m_rows.size()); }
    [[nodiscard]] const QList<EmoticonEntry> &Rows() const { return m_rows; }

    /// The name of the emoticon for which the whole text is the code; empty for none.
    [[nodiscard]] QString CheckEmotion(QStringView text) const;

    /// The first code of the emoticon; empty for none.
    [[nodiscard]] QString GetKeyFromEmotion(QStringView emotion) const;

private:
    void AddEmoticon(const QString &key, const QString &name);
    void noteStart(const QString &key);
    void LoadEmoticonFile(QStringView text);

    QList<EmoticonEntry> m_rows;
    QHash<QString, qsizetype> m_rowsByKey;
    QHash<QString, qsizetype> m_rowsByFoldedKey; ///< the first row with this key in lower case
    qsizetype m_longestKey = 0;
    std::bitset<128> m_starts; ///< the characters of ASCII that a code may begin with
};
