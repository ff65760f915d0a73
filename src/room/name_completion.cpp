#include "room/name_completion.h"

QString NameCompletion::complete(const QString &beforeCaret, const QStringList &names)
{
    if (m_completed.isEmpty() || beforeCaret != m_completed) {
        const qsizetype start = beforeCaret.lastIndexOf(u' ') + 1;
        m_before = beforeCaret.first(start);
        m_beginning = beforeCaret.sliced(start);
        m_next = 0;
    }
    QStringList fitting;
    for (const QString &name : names) {
        if (name.startsWith(m_beginning, Qt::CaseInsensitive) && !fitting.contains(name)) {
            fitting += name;
        }
    }
    m_completed.clear();
    if (!m_beginning.isEmpty() && !fitting.isEmpty()) {
        const QString end = m_before.isEmpty() ? QStringLiteral(": ") : QStringLiteral(" ");
        m_completed = m_before % fitting[m_next % fitting.size()] % end;
        ++m_next;
    }
    return m_completed;
}
