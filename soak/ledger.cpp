#include "soak/ledger.h"

#include "platform/rich_edit.h"
#include "soak/report.h"

#include <QRegularExpression>

#include <algorithm>

Ledger::Ledger(const RichEdit &box, const QString &name, Report &report)
    : m_box(&box), m_name(name), m_report(report)
{}

void Ledger::expect(int serial, int stay)
{
    m_expected.push_back({serial, stay});
    m_delivered.insert(serial);
}

void Ledger::look()
{
    static const QRegularExpression mark(QStringLiteral("\\bn(\\d+)\\.|((?:q\\d+\\.)+)$"));
    const RichDocument &document = m_box->document();
    const auto text = [&](qsizetype at) { return document.paragraph(at).text().toString(); };
    if (m_seen > document.paragraphCount() || (m_seen > 0 && text(m_seen - 1) != m_lastSeen)) {
        m_seen = 0; // another room: the box was cleared
        m_last = {};
    }
    for (; m_seen < document.paragraphCount(); ++m_seen) {
        m_lastSeen = text(m_seen);
        const auto match = mark.match(m_lastSeen);
        if (match.hasCaptured(1)) {
            m_heard.push_back(match.capturedView(1).toInt());
        } else if (match.hasMatch() && ++m_words[match.captured(2)] > 1) {
            m_report.fail(u"the user's line \"" % m_lastSeen % u"\" is twice in " % m_name);
        }
    }
}

void Ledger::judge()
{
    for (; !m_heard.empty(); m_heard.pop_front()) {
        hear(m_heard.front());
    }
}

void Ledger::hear(int serial)
{
    const auto at = std::ranges::find(m_expected, serial, &Line::serial);
    if (at == m_expected.end()) { // else the box is new, and the line was told before it was known
        m_report.require(!m_delivered.contains(serial),
                         u"line " % QString::number(serial) % u" is twice, or out of order, in " % m_name);
        return;
    }
    for (; m_expected.front().serial != serial; m_expected.pop_front()) {
        const Line &passed = m_expected.front();
        m_report.require(passed.stay != m_last.stay || passed.stay != at->stay,
                         u"line " % QString::number(passed.serial) % u" was delivered and is not in " %
                             m_name);
    }
    m_last = m_expected.front();
    m_expected.pop_front();
    ++m_linesHeard;
}

qsizetype Ledger::missing(int stay) const
{
    return m_last.stay != stay
               ? 0
               : std::ranges::count_if(m_expected, [&](const Line &line) { return line.stay == stay; });
}
