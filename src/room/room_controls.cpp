#include "room/room_controls.h"

#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "controls/make_control.h"
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
      rtfMsgs(makeControl<RichEdit>(window, u"rtfMsgs", tr("Message board"))),
      grdUserList(makeControl<QTreeWidget>(window, u"grdUserList", tr("Members"))),
      rtfText(makeControl<QLineEdit>(window, u"rtfText", tr("Message"))),
      lstEmotions(makeControl<QListWidget>(window, u"lstEmotions", tr("Emotions"))),
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
