#pragma once

#include <QByteArray>

#include <memory>
#include <optional>
#include <span>
#include <vector>

/// Cuts a stream of bytes at each NUL. Bytes are read into a block and messages are handed out where they
/// lie. A byte moves at most once: when a block ends inside a message, the block is put aside, and the pieces
/// are joined when the NUL has come. Memory is bounded whatever comes: a message over the limit is dropped up
/// to its NUL.
class MessageFramer
{
public:
    static constexpr qsizetype defaultLimit = 4 << 20;
    static constexpr qsizetype blockSize = 64 << 10;

    explicit MessageFramer(qsizetype limit = defaultLimit) : m_limit(limit) {}

    /// Where the next bytes go, once the framer is drained; never empty. commit() says how many were put
    /// there.
    [[nodiscard]] std::span<char> tail();
    void commit(qsizetype count);

    /// The next complete message without its NUL, or none. The view holds until the framer is used again.
    [[nodiscard]] std::optional<QByteArrayView> next();

    /// True when every complete message has been handed out. Nothing is to be read before that.
    [[nodiscard]] bool isDrained() const { return m_scanned == m_end; }

    /// Bytes that are kept: of a message that is not complete, or not handed out yet.
    [[nodiscard]] qsizetype pendingBytes() const;

private:
    using Block = std::unique_ptr<char[]>;
    struct Piece
    {
        Block block;
        qsizetype start; ///< the piece runs from here to the block's end
    };

    void putBlockAside();
    void forgetAside();
    [[nodiscard]] QByteArrayView joined(QByteArrayView lastPiece);

    qsizetype m_limit;
    Block m_block;
    qsizetype m_start = 0;      ///< first byte of the block that was not handed out
    qsizetype m_end = 0;        ///< behind the last byte of the block
    qsizetype m_scanned = 0;    ///< no NUL lies between the start and here
    std::vector<Piece> m_aside; ///< the message that began in earlier blocks
    qsizetype m_asideBytes = 0;
    bool m_dropping = false; ///< the message that is coming in is over the limit
    QByteArray m_joined;
};
