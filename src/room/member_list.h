#pragma once

#include <QtGlobal>

class QModelIndex;
class QTreeWidget;
class colChatters;
struct SharedState;

/// Fills the list with the members under the headings "Owner", "Online" and "Pending". The first visible row
/// stays; the selection does not. Each member's row carries the member's position in the collection.
void drawMemberList(QTreeWidget &list, const colChatters &chatters, const SharedState &state);

/// The position of the member in this row; 0 for a heading and for no row.
[[nodiscard]] qsizetype positionOf(const QModelIndex &row);
