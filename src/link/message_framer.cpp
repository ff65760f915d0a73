#include "link/message_framer.h"

#include <cstring>
#include <utility>

std::span<char> MessageFramer::tail()
{
    Q_ASSERT(isDrained());
    if (m_start != m_end && m_end == blockSize) {
        putBlockAside();
        m_start = m_end;
    }
    if (m_start == m_end) {
        m_start = m_end = m_scanned = 0;
    }
    if (!m_block) {
        m_block = std::make_unique_for_overwrite<char[]>(blockSize);
    }
    return {m_block.get() + m_end, static_cast<std::size_t>(blockSize - m_end)};
}

void MessageFramer::commit(qsizetype count)
{
    m_end += count;
}

std::optional<QByteArrayView> MessageFramer::next()
{
    m_joined.clear();
    while (m_scanned < m_end) {
        const char *const from = m_block.get() + m_scanned;
        const auto *nul =
            static_cast<const char *>(std::memchr(from, 0, static_cast<std::size_t>(m_end - m_scanned)));
        if (nul == nullptr) {
            m_scanned = m_end;
            break;
        }
        const QByteArrayView piece(m_block.get() + m_start, nul);
        m_start = m_scanned = nul - m_block.get() + 1;
        if (std::exchange(m_dropping, false) || m_asideBytes + piece.size() > m_limit) {
            forgetAside();
            continue;
        }
        return m_aside.empty() ? piece : joined(piece);
    }
    return std::nullopt;
}

qsizetype MessageFramer::pendingBytes() const
{
    return m_asideBytes + m_end - m_start;
}

void MessageFramer::putBlockAside()
{
    m_asideBytes += m_end - m_start;
    if (m_dropping || m_asideBytes > m_limit) {
        m_dropping = true;
        forgetAside();
        return;
    }
    m_aside.push_back({std::move(m_block), m_start});
}

void MessageFramer::forgetAside()
{
    m_aside.clear();
    m_asideBytes = 0;
}

QByteArrayView MessageFramer::joined(QByteArrayView lastPiece)
{
    m_joined.reserve(m_asideBytes + lastPiece.size());
    for (const Piece &piece : m_aside) {
        m_joined.append(piece.block.get() + piece.start, blockSize - piece.start);
    }
    forgetAside();
    return m_joined += lastPiece;
}
