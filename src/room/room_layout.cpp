#include "room/room_layout.h"

#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "controls/dressing.h"
#include "controls/fitting_button.h"
#include "platform/rich_edit.h"
#include "platform/text_looks.h"
#include "room/room_controls.h"
#include "skin/clsSkin.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

#include <algorithm>

namespace {

constexpr int gap = 4;
constexpr int designedUsersWidth = 194;
constexpr int leastUsersWidth = 110;
constexpr int emotionsWidth = 130;

void fill(QWidget &control, const SkinFrame &frame)
{
    control.setGeometry(frame.x() + frame.ClientArea(FrameMeasure::LeftWidth),
                        frame.y() + frame.ClientArea(FrameMeasure::TopHeight),
                        frame.ClientArea(FrameMeasure::ClientWidth),
                        frame.ClientArea(FrameMeasure::ClientHeight));
}

int right(const QWidget &widget)
{
    return widget.x() + widget.width();
}

int bottom(const QWidget &widget)
{
    return widget.y() + widget.height();
}

void setListColours(QWidget &list, const clsSkinResourceNew &skin)
{
    const auto colour = [&](ListItem item) { return toColor(skin.ContactList(item).colour()); };
    QPalette palette = list.palette();
    palette.setColor(QPalette::Base, colour(ListItem::BackColour));
    palette.setColor(QPalette::Text, colour(ListItem::ForeColour));
    palette.setColor(QPalette::Highlight, colour(ListItem::HighlightBackColour));
    palette.setColor(QPalette::HighlightedText, colour(ListItem::HighlightForeColour));
    list.setPalette(palette);
    list.setFont(skin.ContactList(ListItem::Font).font().value_or(QFont()));
}

/// The buttons of the row at the bottom, from both ends.
void layOutRow(RoomControls &c, int left, int top)
{
    c.smdBold->move(left, top);
    c.smdItalic->move(right(*c.smdBold) + gap, top);
    c.smdUnderline->move(right(*c.smdItalic) + gap, top);
    c.smdFont->move(right(*c.smdUnderline) + 2 * gap, top);
    c.smdEmotions->move(right(*c.skfText) - c.smdEmotions->width(), top);
    c.smdEmoticon->move(c.smdEmotions->x() - gap - c.smdEmoticon->width(), top);
}

/// What the row needs so that its ends do not meet.
int rowWidth(const RoomControls &c)
{
    return c.smdBold->width() + c.smdItalic->width() + c.smdUnderline->width() + c.smdFont->width() +
           c.smdEmoticon->width() + c.smdEmotions->width() + 7 * gap;
}

/// The members give way to the row in a narrow window.
int usersWidthFor(const RoomControls &c, const clsSkin &face, QSize window)
{
    const int board = rowWidth(c) + gap + c.smdSend->width();
    const int rest = window.width() - face.NonClient(NonClientPart::SidesWidth) - 3 * gap - board;
    return std::min(designedUsersWidth, std::max({rest, leastUsersWidth, c.smdMenu->width()}));
}

/// The board gives way to the list, the input box below it does not.
void layOutEmotions(RoomControls &c, bool show)
{
    if (show) {
        c.skfMsg->resize(c.skfMsg->width() - emotionsWidth - gap, c.skfMsg->height());
        c.skfEmotions->setGeometry(right(*c.skfMsg) + gap, c.skfMsg->y(), emotionsWidth, c.skfMsg->height());
        fill(*c.lstEmotions, *c.skfEmotions);
    }
    c.skfEmotions->setVisible(show);
    c.lstEmotions->setVisible(show);
}

/// A button that has no skin is as wide as its caption wants.
void resizeUndressed(RoomControls &c)
{
    for (SkinButton *button : {c.smdBold, c.smdItalic, c.smdUnderline, c.smdFont, c.smdEmoticon,
                               c.smdEmotions, c.smdSend, c.smdMenu, c.smdExit}) {
        if (!button->isFinished()) {
            const int caption = button->fontMetrics().horizontalAdvance(button->Caption());
            button->resize(caption + 6 * gap, button->sizeHint().height());
        }
    }
}

} // namespace

void dressRoom(RoomControls &c, clsSkin &face, clsSkinResourceNew &skin)
{
    dressSystemButton(*c.sysClose, skin, FormItem::NormalSysClose);
    dressSystemButton(*c.sysMin, skin, FormItem::NormalSysMin);
    dressSystemButton(*c.sysHelp, skin, FormItem::NormalSysHelp);
    for (SkinButton *button : {c.sysClose, c.sysMin, c.sysHelp}) {
        face.AddSystemButton(*button);
    }
    for (SkinFrame *frame : {c.skfMsg, c.skfUsers, c.skfText, c.skfEmotions}) {
        dressFrame(*frame, skin);
    }
    dressFittingColumn({{c.smdSend, RoomItem::NormalSend, RoomItem::SendText}}, skin);
    dressFittingColumn({{c.smdMenu, RoomItem::NormalMenu, RoomItem::MenuText},
                        {c.smdExit, RoomItem::NormalExit, RoomItem::ExitText}},
                       skin);
    dressFittingColumn({{c.smdFont, RoomItem::NormalFont, RoomItem::FontText}}, skin);
    dressFittingColumn({{c.smdEmotions, RoomItem::NormalEmotions, RoomItem::EmotionsText}}, skin);
    dressFormatButton(*c.smdBold, skin, RoomItem::BoldOverlay);
    dressFormatButton(*c.smdItalic, skin, RoomItem::ItalicOverlay);
    dressFormatButton(*c.smdUnderline, skin, RoomItem::UnderlineOverlay);
    dressFormatButton(*c.smdEmoticon, skin, RoomItem::EmoticonOverlay);
    resizeUndressed(c);
    if (skin.isRead()) {
        setListColours(*c.grdUserList, skin);
        setListColours(*c.lstEmotions, skin);
    }
}

void layOutRoom(RoomControls &c, const clsSkin &face, QSize window, bool showEmotions)
{
    const int leftEdge = face.NonClient(NonClientPart::LeftWidth) + gap;
    const int top = face.NonClient(NonClientPart::TitleHeight) + gap +
                    (c.imgBanner == nullptr ? 0 : c.imgBanner->height() + gap);
    const int innerBottom = window.height() - face.NonClient(NonClientPart::BottomHeight);
    const int usersWidth = usersWidthFor(c, face, window);
    const int rowTop = innerBottom - c.smdBold->height() - gap;

    if (c.imgBanner != nullptr) {
        c.imgBanner->move((window.width() - c.imgBanner->width()) / 2, top - gap - c.imgBanner->height());
    }
    c.skfUsers->resize(usersWidth, 1);
    c.skfUsers->move(window.width() - face.NonClient(NonClientPart::RightWidth) - usersWidth - gap, top);
    const int boardWidth = window.width() - usersWidth - face.NonClient(NonClientPart::SidesWidth) - 3 * gap;

    const int inputHeight = c.rtfText->height();
    c.skfText->resize(boardWidth - c.smdSend->width() - gap,
                      inputHeight + c.skfText->ClientArea(FrameMeasure::TopHeight) +
                          c.skfText->ClientArea(FrameMeasure::BottomHeight));
    c.skfText->move(leftEdge, rowTop - gap - c.skfText->height());
    fill(*c.rtfText, *c.skfText);
    layOutRow(c, leftEdge, rowTop);

    c.skfMsg->setGeometry(leftEdge, top, boardWidth, c.skfText->y() - top - gap);
    layOutEmotions(c, showEmotions);
    fill(*c.rtfMsgs, *c.skfMsg);
    c.skfUsers->resize(usersWidth, c.rtfMsgs->height());
    fill(*c.grdUserList, *c.skfUsers);
    c.smdSend->move(right(*c.skfText) + gap, c.skfText->y());
    c.smdMenu->move(c.skfUsers->x() + (usersWidth - c.smdMenu->width()) / 2, bottom(*c.skfUsers) + gap);
    c.smdExit->move(c.smdMenu->x(), bottom(*c.smdMenu) + 2);
}
