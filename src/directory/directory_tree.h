#pragma once

#include <QElapsedTimer>
#include <QTreeView>

/// The tree of the directory under the hand: typing finds a row, Enter chooses it, and the space bar opens
/// and closes it. Rows are of one height; one that is cut short tells its text in a tooltip.
class DirectoryTree final : public QTreeView
{
    Q_OBJECT

public:
    explicit DirectoryTree(QWidget *parent);

Q_SIGNALS:
    /// Enter was pressed.
    void chosen();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyboardSearch(const QString &search) override;
    bool viewportEvent(QEvent *event) override;

private:
    QElapsedTimer m_searching; ///< since the last letter
};
