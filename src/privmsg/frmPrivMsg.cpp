#include "privmsg/frmPrivMsg.h"

#include "controls/SkinButton.h"
#include "controls/native_look.h"
#include "core/attribute_text.h"
#include "core/clock.h"
#include "core/options.h"
#include "core/shared_state.h"
#include "link/frmComms.h"
#include "platform/rich_edit.h"
#include "platform/text_looks.h"
#include "privmsg/message_edit.h"
#include "privmsg/privmsg_layout.h"
#include "privmsg/privmsg_placement.h"
#include "privmsg/privmsg_rtf.h"
#include "privmsg/split_strip.h"
#include "room/composing.h"
#include "room/message_board.h"
#include "skin/caption_look.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int designedMessageLines = 3;

ColourValue seen(ColourValue colour)
{
    return SystemColours(QGuiApplication::palette()).resolve(colour);
}

} // namespace

frmPrivMsg::frmPrivMsg(const WindowDress &dress, const PrivateChat &chat)
    : TitledWindow(dress, {u"frmPrivMsg", u"chat_privmsg", WindowDragging::Room, Qt::Window}, nullptr),
      m_chat(chat),
      m_controls(*this),
      m_boxColours(chat.rtfText.palette())
{
    m_controls.txtMsg->setFont(m_chat.rtfText.font());
    frmPrivMsg::SetupFormSkin();
    m_controls.txtMsg->resize(0, m_controls.txtMsg->heightOf(designedMessageLines));
    resize(sizeAround(designedClient(m_controls)));
    m_controls.smdSend->setEnabled(false);
    m_controls.txtMsg->setFocus();
    connectControls();
    connectSplitter();
}

void frmPrivMsg::connectControls()
{
    const PrivateControls &c = m_controls;
    connect(c.txtMsg, &QPlainTextEdit::textChanged, this,
            [this] { m_controls.smdSend->setEnabled(!m_controls.txtMsg->isEmpty()); });
    connect(c.txtMsg, &MessageEdit::returnPressed, this, &frmPrivMsg::send);
    connect(c.smdSend, &QAbstractButton::clicked, this, &frmPrivMsg::send);
    connect(c.smdClose, &QAbstractButton::clicked, this, &QWidget::close);
    connect(c.smdInfo, &QAbstractButton::clicked, this,
            [this] { waitFor([this] { m_chat.link.UserDetails(m_peerId); }); });
    connect(c.rtfConv, &RichEdit::linkActivated, this, &frmPrivMsg::addressActivated);
    connect(c.rtfConv, &RichEdit::scrolled, this, [this](bool atEnd) { m_autoScroll = atEnd; });
}

void frmPrivMsg::connectSplitter()
{
    const PrivateControls &c = m_controls;
    connect(c.lblSplit, &SplitStrip::pressed, this, [this] {
        m_controls.picSplit->setGeometry(m_controls.lblSplit->geometry());
        m_controls.picSplit->raise();
        m_controls.picSplit->show();
        m_dragging = true;
    });
    connect(c.lblSplit, &SplitStrip::dragged, this, [this](int y) {
        if (m_dragging) {
            m_controls.picSplit->move(m_controls.picSplit->x(), m_controls.lblSplit->y() + y);
        }
    });
    connect(c.lblSplit, &SplitStrip::released, this, [this] {
        if (m_dragging) {
            m_dragging = false;
            m_controls.picSplit->hide();
            moveSplitter(m_controls, splitAt(m_controls, m_controls.picSplit->y(), height()));
        }
    });
    connect(c.lblSplit, &SplitStrip::stepped, this, [this](int pixels) {
        moveSplitter(m_controls, splitAt(m_controls, m_controls.lblSplit->y() + pixels, height()));
    });
}

void frmPrivMsg::SetupFormSkin()
{
    startTitledSkin();
    dressPrivate(m_controls, skin());
    takeColours();
    setMinimumSize(sizeAround(smallestClient(m_controls)));
}

void frmPrivMsg::layOut()
{
    ArrangeControls(m_controls, clientArea());
}

/// The conversation has the colours of the room's board, the box those of the room's.
void frmPrivMsg::takeColours()
{
    QPalette look = boxLook(skin(), palette());
    look.setColor(QPalette::Base, toColor(seen(m_chat.options.CMBC)));
    look.setColor(QPalette::Text, toColor(seen(m_chat.options.CMTC)));
    m_controls.rtfConv->setPalette(look);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::Base}) {
        look.setColor(role, m_boxColours.color(role));
    }
    m_controls.txtMsg->setPalette(look);
}

void frmPrivMsg::SetupPrivateSession(const QString &id, const QString &name, OpenedBy by)
{
    if (!m_isLoaded) {
        m_peerId = id;
    }
    m_peerName = shownPeerName(name, m_peerId);
    m_controls.lblDetails[0]->setAccessibleName(shownPeerName(m_peerId, {}));
    m_controls.lblDetails[1]->setAccessibleName(m_peerName);
    if (!m_isLoaded) {
        m_isLoaded = true;
        Load();
    }
    takeColours(); // the options may have changed
    layOut();
    bringToFront(by);
}

void frmPrivMsg::Load()
{
    setWindowTitle(titleFor(m_peerName % tr(" - Private Message")));
    takePlacement(*this, readPlacement(m_chat.settings, m_peerId));
    QFont font(m_chat.rtfText.font().family());
    font.setPointSizeF(wholeHalfPoints(m_chat.rtfText.font()) / 2.0);
    m_controls.rtfConv->setFont(font);
}

/// A message leaves a window that the user has put away where it is. The task bar tells.
void frmPrivMsg::bringToFront(OpenedBy by)
{
    setAttribute(Qt::WA_ShowWithoutActivating, by == OpenedBy::Message);
    if (by == OpenedBy::User && isMinimized()) {
        showNormal();
    } else if (isHidden()) {
        show(); // which puts it in front
    } else if (!isMinimized() && (by == OpenedBy::User || QApplication::activeWindow() != nullptr)) {
        raise(); // but not over another program's window, should the user work there
    }
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    if (by == OpenedBy::User) {
        activateWindow();
        m_controls.txtMsg->setFocus();
    }
}

PrivateLook frmPrivMsg::look(ColourValue colour) const
{
    const QFont &font = m_controls.txtMsg->font();
    return {font.family(), wholeHalfPoints(font), seen(colour)};
}

QString frmPrivMsg::GenerateMyPrivateMsg(const QString &text) const
{
    return ::GenerateMyPrivateMsg(text, m_controls.txtMsg->font(), {m_chat.options.MMTC, m_chat.options.MMBC},
                                  SystemColours(QGuiApplication::palette()));
}

void frmPrivMsg::append(const QString &senderId, const QString &message)
{
    const Options &options = m_chat.options;
    const bool own = senderId == m_chat.state.MyUserID;
    const PrivateHeader header{own ? shownPeerName(m_chat.state.MyNickname, senderId) : m_peerName,
                               privateTime(m_chat.clock.now()), seen(own ? options.UNTC : options.CNTC),
                               seen(options.SNORMAL)};
    const PrivateLook words = look(own ? options.MMTC : options.CMTC);
    RichDocument body = privateBody(message.endsWith(itemEnd) ? message.chopped(1) : message, words);
    m_chat.messages.ReplaceEmoticons(body, colourOf(m_controls.rtfConv->backgroundColour()));
    m_controls.rtfConv->append(privateMessage(header, body, words));
    if (m_autoScroll && !m_controls.rtfConv->isSelecting()) {
        m_controls.rtfConv->toEnd();
    }
}

void frmPrivMsg::ShowPrivateMessage(const QString &senderId, const QString &message)
{
    append(senderId, message);
    if (m_isUnloaded) {
        return; // closed while its own message was on the way
    }
    bringToFront(OpenedBy::Message);
    if (senderId != m_chat.state.MyUserID) {
        QApplication::alert(this);
    }
}

/// Events go on meanwhile: a window that is closed by then goes afterwards, because its controls may be in
/// use.
void frmPrivMsg::waitFor(const std::function<void()> &request)
{
    const QPointer<frmPrivMsg> self(this);
    ++m_waits;
    request();
    if (self != nullptr && --m_waits == 0 && m_isUnloaded) {
        finish();
    }
}

/// What is typed stays until it has arrived.
void frmPrivMsg::send()
{
    const QString text = m_controls.txtMsg->text();
    if (m_sending || withoutControlCharacters(text).isEmpty() || !m_chat.state.InRoom) {
        return;
    }
    waitFor([this, text] {
        const QPointer<frmPrivMsg> self(this);
        m_sending = true;
        const bool arrived =
            m_chat.link.SendMessage(roomMessageItem(text, m_controls.txtMsg->font()), m_peerId);
        if (self != nullptr) {
            m_sending = false;
            if (arrived) {
                sent(text);
            }
        }
    });
}

void frmPrivMsg::sent(const QString &text)
{
    ShowPrivateMessage(m_chat.state.MyUserID, GenerateMyPrivateMsg(withoutControlCharacters(text)));
    m_controls.txtMsg->removeSent(text);
    m_controls.txtMsg->setFocus();
}

void frmPrivMsg::setDraft(const QString &text)
{
    m_controls.txtMsg->setPlainText(text);
    m_controls.txtMsg->moveCursor(QTextCursor::End);
}

void frmPrivMsg::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (m_isUnloaded) {
        return;
    }
    m_isUnloaded = true;
    writePlacement(m_chat.settings, m_peerId, *this, m_controls.rtfConv->height());
    Q_EMIT unloaded();
    if (m_waits == 0) {
        finish();
    }
}

void frmPrivMsg::finish()
{
    Q_EMIT finished(m_controls.txtMsg->text());
    deleteLater();
}
