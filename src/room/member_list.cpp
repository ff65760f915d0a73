#include "room/member_list.h"

#include "platform/image_list.h"
#include "room/colChatters.h"
#include "room/member_icons.h"
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

/// Each picture as an icon once, however many members have it.
class Icons
{
public:
    explicit Icons(const ImageList &imgList) : m_imgList(imgList) {}

    [[nodiscard]] const QIcon &of(const QString &name)
    {
        QIcon &icon = m_icons[name];
        if (const QImage image = m_imgList.imageOn(name, qRgba(0, 0, 0, 0));
            icon.isNull() && !image.isNull()) {
            icon = QPixmap::fromImage(image);
        }
        return icon;
    }

private:
    const ImageList &m_imgList;
    QHash<QString, QIcon> m_icons;
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

/// A colour that is not valid leaves the list's own.
void setColour(QTreeWidgetItem &row, Qt::ItemDataRole role, const QColor &colour)
{
    if (colour.isValid()) {
        row.setData(0, role, QBrush(colour));
    }
}

QTreeWidgetItem *makeHeading(const QString &text, const QFont &listFont, const MemberLooks &looks)
{
    auto *heading = new QTreeWidgetItem({text});
    QFont font = looks.font.value_or(listFont);
    font.setPointSizeF(font.pointSizeF() + 1);
    heading->setFont(0, font);
    setColour(*heading, Qt::ForegroundRole, looks.heading);
    setColour(*heading, Qt::BackgroundRole, looks.headingGround);
    return heading;
}

void addGroup(QTreeWidget &list, const Group &group, const colChatters &chatters, const DisplayNames &names,
              const MemberLooks &looks, Icons &icons)
{
    QTreeWidgetItem *heading = makeHeading(group.heading, list.font(), looks);
    heading->setFlags(Qt::ItemIsEnabled);
    for (qsizetype at = 1; at <= chatters.Count(); ++at) {
        const auto member = chatters.Item(at);
        if (group.holds(*member)) {
            auto *row = new QTreeWidgetItem(heading, {names.of(*member)});
            row->setData(0, Qt::UserRole, at);
            row->setData(0, idRole, member->ID);
            row->setIcon(0, icons.of(memberIcon(*member)));
            setColour(*row, Qt::ForegroundRole, looks.member);
        }
    }
    if (heading->childCount() == 0 && !group.shownWhenEmpty) {
        delete heading;
        return;
    }
    list.addTopLevelItem(heading);
    heading->setExpanded(true);
}

/// The member may have moved up since the row was made.
qsizetype positionNow(qsizetype position, const QString &id, const colChatters &chatters)
{
    for (qsizetype at = qMin(position, chatters.Count()); at >= 1; --at) {
        if (chatters.Item(at)->ID == id) {
            return at;
        }
    }
    return 0;
}

} // namespace

void drawMemberList(QTreeWidget &list, const colChatters &chatters, const SharedState &state,
                    const MemberLooks &looks)
{
    const int firstRow = list.verticalScrollBar()->value();
    const QTreeWidgetItem *chosen = list.currentItem();
    const QString id = chosen == nullptr ? QString() : chosen->data(0, idRole).toString();
    list.setUpdatesEnabled(false);
    list.clear();
    if (looks.font) {
        list.setFont(*looks.font);
    }
    const DisplayNames names(state);
    Icons icons(looks.imgList);
    addGroup(list, {QStringLiteral("Owner"), true, [](const clsChatters &m) { return m.Owner; }}, chatters,
             names, looks, icons);
    addGroup(list,
             {QStringLiteral("Online"), false, [](const clsChatters &m) { return !m.Owner && !m.Pending; }},
             chatters, names, looks, icons);
    addGroup(list, {QStringLiteral("Pending"), false, [](const clsChatters &m) { return m.Pending; }},
             chatters, names, looks, icons);
    chooseAgain(list, id);
    list.doItemsLayout(); // or the scroll bar still has the range of the empty list
    list.verticalScrollBar()->setValue(firstRow);
    list.setUpdatesEnabled(true);
}

qsizetype positionOf(const QModelIndex &row, const colChatters &chatters)
{
    return positionNow(row.data(Qt::UserRole).toLongLong(), row.data(idRole).toString(), chatters);
}

qsizetype positionOf(const QTreeWidgetItem &row, const colChatters &chatters)
{
    return positionNow(row.data(0, Qt::UserRole).toLongLong(), row.data(0, idRole).toString(), chatters);
}
