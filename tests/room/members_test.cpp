#include "core/shared_state.h"
#include "platform/image_list.h"
#include "room/colChatters.h"
#include "room/member_icons.h"
#include "room/member_list.h"
#include "support/text.h"

#include <QTreeWidget>

namespace {

TEST(Chatters, RecordsAreUniqueAndCopiesStartUnmarked)
{
    colChatters chatters;
    const QDateTime now(QDate(2026, 3, 5), QTime(12, 0));
    const auto ann = chatters.Add(u"7"_s, u"Ann"_s, 11, 26, true, u"by"_s, now, true, u"to"_s);
    EXPECT_EQ(chatters.Add(u"7"_s, u"Other"_s, 0, 0, false, {}, {}, false, {}), nullptr);
    EXPECT_EQ(chatters.Item(u"C7"_s), ann);
    EXPECT_EQ(chatters.withId(u"8"), nullptr);
    EXPECT_FALSE(ann->AutoAccept || ann->Highlight);

    ann->Nickname = u"Annie"_s;
    ann->AutoAccept = ann->Highlight = true;
    EXPECT_EQ(ann->OriginalName, u"Ann"_s);
    colChatters others;
    const auto copy = others.AddObject(*ann);
    EXPECT_EQ(copy->OriginalName, u"Annie"_s);
    EXPECT_EQ(copy->Joined, now);
    EXPECT_TRUE(copy->Owner && copy->Pending && copy->ToUserID == u"to"_s && copy->InvitedBy == u"by"_s);
    EXPECT_FALSE(copy->AutoAccept || copy->Highlight);
}

/// The rows as text, members with their id.
QString rows(QTreeWidget &list)
{
    QStringList all;
    for (QTreeWidgetItemIterator row(&list); *row != nullptr; ++row) {
        const QString id = (*row)->data(0, Qt::UserRole).toString();
        all += (*row)->parent() == nullptr ? (*row)->text(0) : QString(u"  " + (*row)->text(0) + u' ' + id);
    }
    return all.join(u'|');
}

TEST(MemberList, GroupsNamesAndPositions)
{
    SharedState state;
    colChatters chatters;
    QTreeWidget list;
    ImageList pictures;
    drawMemberList(list, chatters, state, {pictures, {}, {}, {}, {}});
    EXPECT_EQ(rows(list), u"Owner"_s);

    AddToList(state.lists, u'P', u"2"_s, u"My friend"_s);
    for (const QString &id : {u"1"_s, u"2"_s, u"3"_s, u"4"_s}) {
        chatters.Add(id, u"n" + id, 11, 0, id == u"3", {}, {}, id == u"1", {});
    }
    drawMemberList(list, chatters, state, {pictures, {}, {}, {}, {}});
    EXPECT_EQ(rows(list), u"Owner|  n3 3|Online|  My friend 2|  n4 4|Pending|  n1 1"_s);
}

TEST(MemberList, IconsOfMoodsAndStatuses)
{
    const std::tuple<int, int, bool, QString> cases[] = {
        {11, 3, false, u"Chatty"_s},
        {12, 3, false, u"Away"_s},
        {11, 26, true, u"Online"_s},
        {11, 0, false, u"Indifferent"_s},
        {11, 26, false, u"Indifferent"_s},
        {11, 27, false, u"Silly"_s},
        {0, 7, false, u""_s},
        {25, 7, true, u""_s},
        {24, 7, false, u"Authorise"_s},
    };
    for (const auto &[status, mood, pending, icon] : cases) {
        clsChatters member;
        member.Status = status;
        member.Mood = mood;
        member.Pending = pending;
        EXPECT_EQ(memberIcon(member), icon) << status << ' ' << mood;
    }
    ImageList pictures;
    pictures.add(u"Happy"_s, QImage(16, 16, QImage::Format_RGB32));
    pictures.add(u"Away"_s, QImage(16, 16, QImage::Format_RGB32));
    EXPECT_EQ(GetMoodIconNum(7, pictures), 1);
    EXPECT_EQ(GetStatusIconNum(12, pictures), 2);
    EXPECT_EQ(GetStatusIconNum(11, pictures), 0);

    const SharedState state;
    colChatters chatters;
    QTreeWidget list;
    chatters.Add(u"1"_s, u"n"_s, 12, 0, true, {}, {}, false, {});
    drawMemberList(list, chatters, state, {pictures, {}, Qt::red, Qt::blue, Qt::green});
    const QTreeWidgetItem *heading = list.topLevelItem(0);
    EXPECT_TRUE(heading->icon(0).isNull());
    EXPECT_FALSE(heading->child(0)->icon(0).isNull());
    EXPECT_EQ(heading->background(0).color(), Qt::blue);
    EXPECT_EQ(heading->child(0)->foreground(0).color(), Qt::green);
}

} // namespace
