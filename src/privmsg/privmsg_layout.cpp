#include "privmsg/privmsg_layout.h"

#include "controls/SkinButton.h"
#include "controls/dressing.h"
#include "controls/fitting_button.h"
#include "platform/rich_edit.h"
#include "platform/text_looks.h"
#include "privmsg/message_edit.h"
#include "privmsg/privmsg_controls.h"
#include "privmsg/split_strip.h"
#include "skin/clsSkinResourceNew.h"

#include <QLabel>

#include <algorithm>
#include <cmath>

namespace {

constexpr int margin = 8;
constexpr int labelGap = 4;
constexpr int labelPadding = 4;
constexpr int infoAboveDetails = 2;
constexpr int aboveSplit = 6;
constexpr int splitToMsg = 10;
constexpr int splitToClose = 18;
constexpr int nearestSplit = 100; // to the window's edges

constexpr int longestIdShown = 10;       // letters
constexpr int fewestNameLetters = 8;     // that are always seen
constexpr int smallestConversation = 40; // pixels
constexpr int lowestClient = 220;        // pixels: the splitter has some way to go

constexpr int designedLetters = 60;      // of a line of the box that is written in
constexpr int designedLines = 3;         // of that box
constexpr int designedConversation = 12; // lines

int bottom(const QWidget &widget)
{
    return widget.y() + widget.height();
}

int widthOf(const QLabel &label, const QString &text)
{
    const double letters = QFontMetricsF(label.font()).horizontalAdvance(text);
    return static_cast<int>(std::ceil(letters)) + 2 * label.margin();
}

int widthOf(const QLabel &label, int letters)
{
    return widthOf(label, QString(letters, u'n'));
}

void dressInfo(SkinButton &smdInfo, clsSkinResourceNew &skin)
{
    skin.MessagingForm(PrivateItem::AcquireInfoButton);
    dressInfoButton(smdInfo, skin);
    sizeUndressed(smdInfo);
    skin.MessagingForm(PrivateItem::ReleaseInfoButton);
}

void dressLabel(QLabel &label, clsSkinResourceNew &skin, FormItem font, FormItem ink, FormItem ground)
{
    QPalette palette;
    if (skin.isRead()) {
        palette.setColor(QPalette::WindowText, toColor(skin.FormDefaults(ink).colour()));
        palette.setColor(QPalette::Window, toColor(skin.FormDefaults(ground).colour()));
    }
    label.setPalette(palette);
    label.setFont(skin.FormDefaults(font).font().value_or(QFont()));
}

int detailsHeight(const PrivateControls &c)
{
    const int text =
        std::max(c.lblDetailsC[0]->fontMetrics().height(), c.lblDetails[0]->fontMetrics().height());
    return std::max(text + labelGap, c.smdInfo->height() - 2 * infoAboveDetails);
}

/// What does not fit of the text is cut; a tooltip has it all then.
void showWithin(QLabel &label, int width)
{
    const QString whole = label.accessibleName();
    const QString shown = label.fontMetrics().elidedText(whole, Qt::ElideRight, width - 2 * label.margin());
    label.setText(shown);
    label.setToolTip(shown == whole ? QString() : whole.toHtmlEscaped());
}

void arrangeDetails(const PrivateControls &c, const QRect &client)
{
    const int top = client.y() + margin;
    const int height = detailsHeight(c);
    int left = client.x() + margin;
    const auto place = [&](QLabel &label, int width, int gap) {
        label.setGeometry(left, top, width, height);
        left += width + gap;
    };
    c.smdInfo->move(client.x() + client.width() - margin - c.smdInfo->width(), top - infoAboveDetails);
    const auto [idCaption, nameCaption] = c.lblDetailsC;
    const auto [id, name] = c.lblDetails;
    const int idWidth = std::min(widthOf(*id, id->accessibleName()), widthOf(*id, longestIdShown));
    showWithin(*id, idWidth);
    place(*idCaption, widthOf(*idCaption, idCaption->text()), labelGap);
    place(*id, idWidth, margin);
    place(*nameCaption, widthOf(*nameCaption, nameCaption->text()), labelGap);
    const int nameWidth = std::max(c.smdInfo->x() - margin - left, 0);
    showWithin(*name, nameWidth);
    place(*name, nameWidth, 0);
}

/// The height of the client area around a conversation of one height and a box of another.
int heightAround(const PrivateControls &c, int conversation, int box)
{
    return margin + detailsHeight(c) + margin + conversation + aboveSplit + splitToMsg + box + margin +
           c.smdClose->height() + margin;
}

int detailsWidth(const PrivateControls &c, int nameLetters)
{
    const auto [idCaption, nameCaption] = c.lblDetailsC;
    const auto [id, name] = c.lblDetails;
    return margin + widthOf(*idCaption, idCaption->text()) + labelGap + widthOf(*id, longestIdShown) +
           margin + widthOf(*nameCaption, nameCaption->text()) + labelGap + widthOf(*name, nameLetters) +
           margin + c.smdInfo->width() + margin;
}

} // namespace

void dressPrivate(const PrivateControls &c, clsSkinResourceNew &skin)
{
    dressFittingButton(*c.smdClose, skin);
    dressFittingButton(*c.smdSend, skin);
    dressInfo(*c.smdInfo, skin);
    for (std::size_t at = 0; at < c.lblDetails.size(); ++at) {
        dressLabel(*c.lblDetailsC[at], skin, FormItem::BoldFont, FormItem::BoldForeColour,
                   FormItem::BackColour);
        dressLabel(*c.lblDetails[at], skin, FormItem::InputFont, FormItem::InputForeColour,
                   FormItem::InputBackColour);
        c.lblDetails[at]->setMargin(skin.isRead() ? labelPadding : 0); // where its ground is to be seen
    }
}

void ArrangeControls(const PrivateControls &c, const QRect &client)
{
    arrangeDetails(c, client);
    const int buttonsTop = client.y() + client.height() - margin - c.smdClose->height();
    c.smdClose->move(client.x() + margin, buttonsTop);
    c.smdSend->move(client.x() + client.width() - margin - c.smdSend->width(), buttonsTop);

    const int conversationTop = bottom(*c.lblDetailsC[0]) + margin;
    const int room = buttonsTop - margin - aboveSplit - splitToMsg - smallestConversation - conversationTop;
    const int line = c.txtMsg->heightOf(1);
    const int height = std::clamp(c.txtMsg->height(), line, std::max(line, room));
    c.txtMsg->setGeometry(client.x() + margin, buttonsTop - margin - height, client.width() - 2 * margin,
                          height);
    c.lblSplit->setGeometry(client.x(), c.txtMsg->y() - splitToMsg, client.width(), SplitStrip::thickness);
    c.rtfConv->setGeometry(c.lblDetailsC[0]->x(), conversationTop, c.txtMsg->width(),
                           c.lblSplit->y() - aboveSplit - conversationTop);
}

int splitAt(const PrivateControls &c, int top, int windowHeight)
{
    const int lowest =
        std::min(windowHeight - nearestSplit, c.smdClose->y() - splitToClose - c.txtMsg->heightOf(1));
    return std::clamp(top, nearestSplit, std::max(lowest, nearestSplit));
}

void moveSplitter(const PrivateControls &c, int split)
{
    c.rtfConv->resize(c.rtfConv->width(), split - c.rtfConv->y() - aboveSplit);
    c.lblSplit->move(c.lblSplit->x(), bottom(*c.rtfConv) + aboveSplit);
    c.txtMsg->setGeometry(c.txtMsg->x(), c.lblSplit->y() + splitToMsg, c.txtMsg->width(),
                          c.smdClose->y() - split - splitToClose);
}

QSize designedClient(const PrivateControls &c)
{
    const int letter = c.txtMsg->fontMetrics().horizontalAdvance(u'n');
    const int line = c.txtMsg->fontMetrics().lineSpacing();
    return QSize(designedLetters * letter,
                 heightAround(c, designedConversation * line, c.txtMsg->heightOf(designedLines)))
        .expandedTo(smallestClient(c));
}

QSize smallestClient(const PrivateControls &c)
{
    const int buttons = 3 * margin + c.smdClose->width() + c.smdSend->width();
    return {std::max(detailsWidth(c, fewestNameLetters), buttons),
            std::max(heightAround(c, smallestConversation, c.txtMsg->heightOf(1)), lowestClient)};
}
