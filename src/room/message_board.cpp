#include "room/message_board.h"

#include "core/attribute_text.h"
#include "platform/rich_edit.h"
#include "richtext/rtf_reader.h"
#include "room/message_look.h"

#include <QFontInfo>
#include <QGuiApplication>

namespace {

constexpr qint32 spaceBeforeMessage = 80; // twips: 4 points

} // namespace

MessageBoard::MessageBoard(RichEdit &board, const Options &options, const ChatColours &skinColours,
                           EmoticonFile &emoticons, const ImageList &imgList)
    : rtfMsgs(board), m_options(options), m_skinColours(skinColours), m_replacer(options, emoticons, imgList)
{
    connect(&rtfMsgs, &RichEdit::scrolled, this, [this](bool atEnd) { m_autoScroll = atEnd; });
    setInputBox(rtfMsgs.font(), {});
}

void MessageBoard::setInputBox(const QFont &font, const ColourPair &colours)
{
    m_inputColours = colours;
    if (font != m_font) {
        m_font = font;
        if (font.pointSizeF() <= 0) { // its size is in pixels
            m_font.setPointSizeF(QFontInfo(font).pointSizeF());
        }
        QFont boardFont(font.family());
        boardFont.setPointSizeF(m_font.pointSizeF());
        rtfMsgs.setFont(boardFont);
        rtfMsgs.setFontIn(0, rtfMsgs.document().length(), font.family(), m_font.pointSizeF());
    }
}

MessageLook MessageBoard::look() const
{
    return messageLook(m_options, m_skinColours, {m_font, m_inputColours});
}

QString MessageBoard::rtfOf(const QString &text, MessageKind kind, const QString &name,
                            const QString &otherName, bool highlight) const
{
    const MessageLook messageLook = look();
    const SystemColours systemColours(QGuiApplication::palette());
    const MessageRtf rtf(messageLook, systemColours);
    switch (kind) {
    case MessageKind::Own:
    case MessageKind::Member:
        return rtf.GenerateRTF(text, kind, name, highlight);
    case MessageKind::Emotion:
        return rtf.GenerateEmotion(text, name, otherName);
    case MessageKind::Normal:
    case MessageKind::Warning:
    case MessageKind::Error:
        return rtf.GenerateServerMsg(text, kind);
    case MessageKind::FriendOnline:
    case MessageKind::MessengerOffline:
    case MessageKind::MessengerOnline:
        break;
    }
    return rtf.GeneratePyloxMsg(text, kind);
}

QString MessageBoard::GeneratePrivateMsg(const QString &text) const
{
    const MessageLook messageLook = look();
    const SystemColours systemColours(QGuiApplication::palette());
    return MessageRtf(messageLook, systemColours).GeneratePrivateMsg(text);
}

void MessageBoard::AddMessage(const QString &text, MessageKind kind, const QString &name,
                              const QString &otherName, bool highlight)
{
    const QString shown = text.endsWith(itemEnd) ? text.chopped(1) : text;
    RichDocument message;
    // What the generators write is whole; should it not be, what was readable is shown.
    (void)readRtf(rtfOf(shown, kind, name, otherName, highlight), message);
    m_replacer.ReplaceEmoticons(message, m_inputColours.background);
    const quint16 font = message.fontNumber(m_font.family());
    const auto halfPoints = halfPointsOf(m_font.pointSizeF());
    message.changeFormats(0, message.length(), [&](TextFormat &format) {
        format.font = font;
        format.halfPoints = halfPoints;
    });
    message.changeParagraphFormats(0, message.length(),
                                   [](ParagraphFormat &format) { format.spaceBefore = spaceBeforeMessage; });
    rtfMsgs.append(message);
    if (m_autoScroll && !rtfMsgs.isSelecting()) {
        rtfMsgs.toEnd();
    }
}

void MessageBoard::clear()
{
    rtfMsgs.clear();
    m_autoScroll = true;
}
