#include "privmsg/privmsg_controls.h"

#include "controls/make_control.h"
#include "platform/rich_edit.h"
#include "privmsg/message_edit.h"
#include "privmsg/split_strip.h"

#include <QCoreApplication>
#include <QLabel>

#include <initializer_list>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("frmPrivMsg", text);
}

QLabel *makeLabel(QWidget &window, const char16_t *name, const QString &text = {})
{
    auto *label = makeControl<QLabel>(window, name);
    label->setTextFormat(Qt::PlainText); // a stranger's
    label->setText(text);
    return label;
}

} // namespace

PrivateControls::PrivateControls(QWidget &window)
    : lblDetailsC{makeLabel(window, u"lblDetailsC_0", tr("Soul #:")),
                  makeLabel(window, u"lblDetailsC_1", tr("Name:"))},
      lblDetails{makeLabel(window, u"lblDetails_0"), makeLabel(window, u"lblDetails_1")},
      smdInfo(makeButton(window, u"smdInfo", tr("User details"), tr("User &details"))),
      rtfConv(makeControl<RichEdit>(window, u"rtfConv", tr("Conversation"))),
      lblSplit(makeControl<SplitStrip>(window, u"lblSplit", tr("Height of the message box"))),
      picSplit(makeControl<SplitStrip>(window, u"picSplit")),
      txtMsg(makeControl<MessageEdit>(window, u"txtMsg", tr("Message"))),
      smdSend(makeButton(window, u"smdSend", tr("Send"), tr("&Send"))),
      smdClose(makeButton(window, u"smdClose", tr("Close"), tr("&Close")))
{
    for (std::size_t at = 0; at < lblDetails.size(); ++at) {
        lblDetailsC[at]->setBuddy(lblDetails[at]);
        lblDetails[at]->setAutoFillBackground(true);
    }
    smdInfo->setToolTip(smdInfo->accessibleName());
    rtfConv->setReadOnly(true);
    picSplit->setEnabled(false);
    picSplit->setFocusPolicy(Qt::NoFocus);
    picSplit->hide();
    const std::initializer_list<QWidget *> order = {smdInfo, rtfConv, lblSplit, txtMsg, smdSend, smdClose};
    for (const auto *next = order.begin() + 1; next != order.end(); ++next) {
        QWidget::setTabOrder(*(next - 1), *next);
    }
}
