#include "link/flood_lock.h"

#include "core/clock.h"
#include "platform/prompts.h"

namespace {

constexpr qint64 windowMilliseconds = 2000;
constexpr qint64 lockMilliseconds = 5000;
constexpr int tooMany = 3;

} // namespace

void FloodLock::admit()
{
    if (m_boxOpen) {
        return;
    }
    const qint64 now = m_clock.steadyMilliseconds();
    if (m_floodStart + windowMilliseconds <= now) {
        m_floodCount = 1;
        m_floodStart = now;
        return;
    }
    if (++m_floodCount < tooMany) {
        return;
    }
    m_boxOpen = true;
    m_prompts.tell(QStringLiteral("Please don't spam, chat will lock for 5 seconds!"),
                   QStringLiteral("Lock up"), PromptIcon::Information);
    m_boxOpen = false;
    m_clock.block(lockMilliseconds);
    m_floodCount = 1;
    m_floodStart = m_clock.steadyMilliseconds();
}
