#include "core/options.h"

namespace {

void take(ColourValue &text, ColourValue &ground, const ColourPair &pair)
{
    text = pair.text;
    ground = pair.background == pair.text ? InvertColour(pair.text) : pair.background;
}

} // namespace

Options defaultOptions(const ChatColours &skin)
{
    Options options;
    take(options.UNTC, options.UNBC, skin.username);
    take(options.MMTC, options.MMBC, skin.message);
    take(options.CNTC, options.CNBC, skin.chattersName);
    take(options.CMTC, options.CMBC, skin.chattersMessage);
    take(options.EMTC, options.EMBC, skin.emotions);
    options.SNORMAL = skin.server;
    options.SWARNING = skin.serverWarning;
    options.SERROR = skin.serverError;
    return options;
}
