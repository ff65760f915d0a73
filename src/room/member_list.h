#pragma once

#include <QColor>
#include <QFont>

#include <optional>

class ImageList;
class QModelIndex;
class QTreeWidget;
class QTreeWidgetItem;
class colChatters;
struct SharedState;

/// What the rows look like: the icons, and the skin's colours and font where there is a skin.
struct MemberLooks
{
    const ImageList &imgList;
    std::optional<QFont> font;
    QColor heading; ///< not valid: the list's own, like the others
    QColor headingGround;
    QColor member;
};

/// Fills the list with the members under the headings "Owner", "Online" and "Pending", all of them expanded.
/// The first visible row stays, and so does the member that was chosen. Each member's row carries the
/// member's position in the collection.
void drawMemberList(QTreeWidget &list, const colChatters &chatters, const SharedState &state,
                    const MemberLooks &looks);

/// The position that the member of this row has by now; 0 for a heading, for no row, and for a member who has
/// gone since the list was drawn.
[[nodiscard]] qsizetype positionOf(const QModelIndex &row, const colChatters &chatters);
[[nodiscard]] qsizetype positionOf(const QTreeWidgetItem &row, const colChatters &chatters);
