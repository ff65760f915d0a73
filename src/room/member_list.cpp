#include "room/member_list.h"

#include "room/colChatters.h"
#include "room/member_names.h"

#include <QScrollBar>
#include <QTreeWidget>

#include <functional>

namespace {

struct Group
{
    QString heading;
    bool shownWhenEmpty;
    std::function<bool(const clsChatters &)> holds;
};

constexpr int idRole = Qt::UserRole + 1;

/// The user stays on the member that was chosen.
void chooseAgain(QTreeWidget &list, const QString &id)
{
    for (QTreeWidgetItemIterator each(&list); *each != nullptr && !id.isEmpty(); ++each) {
        if ((*each)->data(0, idRole).toString() == id) {
            list.setCurrentItem(*each);
            return;
        }
    }
}

void addGroup(QTreeWidget &list, const Group &group, const colChatters &chatters, const SharedState &state)
{
    auto *heading = new QTreeWidgetItem({group.heading});
    QFont font = list.font();
    font.setPointSizeF(font.pointSizeF() + 1);
    heading->setFont(0, font);
    heading->setFlags(Qt::ItemIsEnabled);
    for (qsizetype at = 1; at <= chatters.Count(); ++at) {
        const auto member = chatters.Item(at);
        if (group.holds(*member)) {
            auto *row = new QTreeWidgetItem(heading, {displayName(*member, state)});
            row->setData(0, Qt::UserRole, at);
            row->setData(0, idRole, member->ID);
        }
    }
    if (heading->childCount() == 0 && !group.shownWhenEmpty) {
        delete heading;
        return;
    }
    list.addTopLevelItem(heading);
    heading->setExpanded(true);
}

} // namespace

void drawMemberList(QTreeWidget &list, const colChatters &chatters, const SharedState &state)
{
    const int firstRow = list.verticalScrollBar()->value();
    const QTreeWidgetItem *chosen = list.currentItem();
    const QString id = chosen == nullptr ? QString() : chosen->data(0, idRole).toString();
    list.setUpdatesEnabled(false);
    list.clear();
    addGroup(list, {QStringLiteral("Owner"), true, [](const clsChatters &m) { return m.Owner; }}, chatters,
             state);
    addGroup(list,
             {QStringLiteral("Online"), false, [](const clsChatters &m) { return !m.Owner && !m.Pending; }},
             chatters, state);
    addGroup(list, {QStringLiteral("Pending"), false, [](const clsChatters &m) { return m.Pending; }},
             chatters, state);
    chooseAgain(list, id);
    list.doItemsLayout(); // or the scroll bar still has the range of the empty list
    list.verticalScrollBar()->setValue(firstRow);
    list.setUpdatesEnabled(true);
}

qsizetype positionOf(const QModelIndex &row)
{
    return row.data(Qt::UserRole).toLongLong();
}
