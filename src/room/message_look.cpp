#include "room/message_look.h"

#include "core/options.h"

#include <QFont>

namespace {

void takeOptionColours(MessageLook &look, const Options &options)
{
    look.ownName = {options.UNTC, options.UNBC};
    look.ownText = {options.MMTC, options.MMBC};
    look.memberName = {options.CNTC, options.CNBC};
    look.memberText = {options.CMTC, options.CMBC};
    look.emotionName = {options.CNTC, options.CNBC};
    look.emotionText = {options.EMTC, options.EMBC};
    look.normal = options.SNORMAL;
    look.warning = options.SWARNING;
    look.error = options.SERROR;
}

void takeSkinColours(MessageLook &look, const ChatColours &skin, const ColourPair &inputBox)
{
    look.ownName = skin.username;
    look.ownText = inputBox;
    look.memberName = skin.username;
    look.memberText = skin.chattersMessage;
    look.emotionName = {skin.username.text, InvertColour(skin.username.text)};
    look.emotionText = {skin.emotions.text, InvertColour(skin.emotions.text)};
    look.normal = skin.server;
    look.warning = skin.serverWarning;
    look.error = skin.serverError;
}

} // namespace

MessageLook messageLook(const Options &options, const ChatColours &skin, const InputBoxLook &inputBox)
{
    MessageLook look;
    if (options.IGNORECOL) {
        takeSkinColours(look, skin, inputBox.colours);
    } else {
        takeOptionColours(look, options);
    }
    look.highlight = options.HIGHLIGHT;
    look.privateText = {options.CMTC, options.CMBC};
    look.points = inputBox.font.pointSizeF();
    look.bold = inputBox.font.bold();
    look.italic = inputBox.font.italic();
    look.underline = inputBox.font.underline();
    return look;
}
