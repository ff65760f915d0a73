#include "room/room_controls.h"

#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "platform/rich_edit.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

#include <initializer_list>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("frmMain", text);
}

/// A child widget under its name, which tests and assistive programs find it by.
template <typename Widget>
Widget *make(QWidget &parent, const char16_t *name, const QString &accessibleName)
{
    auto *widget = new Widget(&parent);
    widget->setObjectName(QStringView(name).toString());
    widget->setAccessibleName(accessibleName);
    return widget;
}

/// The caption is what stands on it until a skin brings its own.
SkinButton *makeButton(QWidget &parent, const char16_t *name, const QString &accessibleName,
                       const QString &caption = {})
{
    auto *button = make<SkinButton>(parent, name, accessibleName);
    button->setCaption(caption);
    return button;
}

/// The title strip's buttons are for the mouse: the keyboard has the window manager's own ways.
SkinButton *makeSystemButton(QWidget &parent, const char16_t *name, const QString &accessibleName)
{
    SkinButton *button = makeButton(parent, name, accessibleName);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(accessibleName);
    return button;
}

void setUpMembers(QTreeWidget &list)
{
    list.setHeaderLabel(tr("Members")); // not seen, but heard
    list.setHeaderHidden(true);
    list.setSelectionBehavior(QAbstractItemView::SelectItems);
    list.setIndentation(14);
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setTextElideMode(Qt::ElideRight);
}

} // namespace

RoomControls::RoomControls(QWidget &window)
    : skfMsg(new SkinFrame(&window)),
      skfUsers(new SkinFrame(&window)),
      skfText(new SkinFrame(&window)),
      skfEmotions(new SkinFrame(&window)),
      rtfMsgs(make<RichEdit>(window, u"rtfMsgs", tr("Message board"))),
      grdUserList(make<QTreeWidget>(window, u"grdUserList", tr("Members"))),
      rtfText(make<QLineEdit>(window, u"rtfText", tr("Message"))),
      lstEmotions(make<QListWidget>(window, u"lstEmotions", tr("Emotions"))),
      smdBold(makeButton(window, u"smdBold", tr("Bold"))),
      smdItalic(makeButton(window, u"smdItalic", tr("Italic"))),
      smdUnderline(makeButton(window, u"smdUnderline", tr("Underline"))),
      smdFont(makeButton(window, u"smdFont", tr("Font"), tr("Font"))),
      smdEmoticon(makeButton(window, u"smdEmoticon", tr("Emoticons"))),
      smdEmotions(makeButton(window, u"smdEmotions", tr("Emotions list"), tr("Emotions"))),
      smdSend(makeButton(window, u"smdSend", tr("Send"), tr("&Send"))),
      smdMenu(makeButton(window, u"smdMenu", tr("Menu"), tr("&Menu"))),
      smdExit(makeButton(window, u"smdExit", tr("Exit"), tr("E&xit"))),
      sysClose(makeSystemButton(window, u"sysClose", tr("Close window"))),
      sysMin(makeSystemButton(window, u"sysMin", tr("Minimise window"))),
      sysHelp(makeSystemButton(window, u"sysHelp", tr("Help")))
{
    skfMsg->setObjectName(QStringLiteral("skfMsg"));
    skfUsers->setObjectName(QStringLiteral("skfUsers"));
    skfText->setObjectName(QStringLiteral("skfText"));
    skfEmotions->setObjectName(QStringLiteral("skfEmotions"));
    rtfMsgs->setReadOnly(true);
    setUpMembers(*grdUserList);
    rtfText->setFrame(false);
    for (QFrame *framed : {static_cast<QFrame *>(rtfMsgs), static_cast<QFrame *>(grdUserList),
                           static_cast<QFrame *>(lstEmotions)}) {
        framed->setFrameShape(QFrame::NoFrame); // the skin's frame is round them
    }
    for (SkinButton *button : {smdBold, smdItalic, smdUnderline, smdFont, smdEmoticon, smdEmotions}) {
        button->setToolTip(button->accessibleName());
    }
    const std::initializer_list<QWidget *> order = {
        rtfText,      smdSend, rtfMsgs,     lstEmotions, grdUserList, smdBold, smdItalic,
        smdUnderline, smdFont, smdEmoticon, smdEmotions, smdMenu,     smdExit};
    for (const auto *next = order.begin() + 1; next != order.end(); ++next) {
        QWidget::setTabOrder(*(next - 1), *next);
    }
}
