#include "directory/directory_tree.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>

DirectoryTree::DirectoryTree(QWidget *parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setExpandsOnDoubleClick(false); // it has another meaning
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
}

/// The toolkit makes the first row the current one without selecting it, and the first arrow key would then
/// pass it over.
void DirectoryTree::focusInEvent(QFocusEvent *event)
{
    QTreeView::focusInEvent(event);
    if (selectionModel() != nullptr && !selectionModel()->hasSelection()) {
        selectionModel()->clearCurrentIndex();
    }
}

/// Later, when the key has been dealt with: what is chosen may wait for the messenger.
void DirectoryTree::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            QMetaObject::invokeMethod(this, &DirectoryTree::chosen, Qt::QueuedConnection);
        }
    } else {
        QTreeView::keyPressEvent(event);
    }
}

/// A space inside a name goes on with the search.
void DirectoryTree::keyboardSearch(const QString &search)
{
    const bool goesOn =
        m_searching.isValid() && !m_searching.hasExpired(QApplication::keyboardInputInterval());
    if (search == u" " && !goesOn) {
        setExpanded(currentIndex(), !isExpanded(currentIndex()));
        return;
    }
    m_searching.start();
    QTreeView::keyboardSearch(search);
}

bool DirectoryTree::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const QModelIndex index = indexAt(static_cast<QHelpEvent *>(event)->pos());
        if (sizeHintForIndex(index).width() <= visualRect(index).width()) {
            return true;
        }
    }
    return QTreeView::viewportEvent(event);
}
