#include "room/member_icons.h"

#include "room/clsChatters.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr qint32 online = 11;

struct NumberedIcon
{
    qint32 number;
    const char16_t *name;
};

constexpr NumberedIcon statusIcons[] = {
    {10, u"Offline"},   {11, u"Online"},         {12, u"Away"},         {13, u"Not Available"},
    {14, u"Invisible"}, {15, u"Do Not Disturb"}, {16, u"Authorise"},    {17, u"SysMessage"},
    {18, u"Message"},   {19, u"Chat Request"},   {20, u"File Request"}, {21, u"URL"},
    {22, u"Birthday"},  {23, u"Authorise"},      {24, u"Authorise"},
};

constexpr NumberedIcon moodIcons[] = {
    {1, u"Angry"},   {2, u"Bored"}, {3, u"Chatty"}, {4, u"Chillin"}, {5, u"Depressed"},
    {6, u"Excited"}, {7, u"Happy"}, {8, u"Sad"},    {27, u"Silly"},
};

template <typename Icons>
QString nameOf(const Icons &icons, qint32 number, const char16_t *otherwise)
{
    const auto *icon = std::ranges::find(icons, number, &NumberedIcon::number);
    return QStringView(icon == std::end(icons) ? otherwise : icon->name).toString();
}

} // namespace

QString statusIcon(qint32 status)
{
    return nameOf(statusIcons, status, u"");
}

QString moodIcon(qint32 mood)
{
    return nameOf(moodIcons, mood, u"Indifferent");
}

QString memberIcon(const clsChatters &member)
{
    return member.Status == online && !member.Pending ? moodIcon(member.Mood) : statusIcon(member.Status);
}
