#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <deque>

class Report;
class RichEdit;

/// What one box of messages has shown so far: the lines that others have said, by their serials, and those
/// that the soak's user has. Each is to be there once, and those of others in order and without a gap.
class Ledger
{
public:
    Ledger(const RichEdit &box, const QString &name, Report &report);

    /// A line has been delivered to this box, in this stay.
    void expect(int serial, int stay);
    /// Reads what is new in the box. What it shows has to have been expected before it is judged.
    void look();
    void judge();

    /// How often the words of the user are there.
    [[nodiscard]] int shown(const QString &words) const { return m_words.value(words); }
    /// Lines of the stay that should be there and are not (yet).
    [[nodiscard]] qsizetype missing(int stay) const;

    [[nodiscard]] qsizetype linesHeard() const { return m_linesHeard; }

private:
    struct Line
    {
        int serial = 0;
        int stay = -1;
    };
    void hear(int serial);

    const RichEdit *m_box;
    QString m_name;
    Report &m_report;
    qsizetype m_seen = 0; ///< paragraphs
    QString m_lastSeen;   ///< the last of them
    QHash<QString, int> m_words;
    std::deque<int> m_heard;     ///< and not judged yet
    std::deque<Line> m_expected; ///< in the order of their delivery
    QSet<int> m_delivered;       ///< all that were ever expected
    Line m_last;                 ///< of those that were shown
    qsizetype m_linesHeard = 0;
};
