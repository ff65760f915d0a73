#pragma once

#include "link/clsXMLMessage.h"

#include <QAbstractItemModel>
#include <QColor>
#include <QHash>

#include <memory>
#include <vector>

/// One row of the directory. What it is stands here; its text only shows it.
struct DirectoryNode
{
    enum class Kind
    {
        Category,
        Room,
        Error, ///< stands in the place of the categories
    };

    Kind kind = Kind::Category;
    QString key;  ///< of a category the codes on the way to it, joined by "-"; of a room that, "~" and its id
    QString name; ///< as the messenger has it
    QString shownName;      ///< on one line, and nothing in it that cannot be seen
    QString members;        ///< of a room, as the messenger counts them
    qint32 roomId = 0;      ///< of a room
    int rooms = 0;          ///< of a category, those that are known
    bool isAsked = false;   ///< the category's rooms have been asked for …
    bool hasFailed = false; ///< … and nothing came

    DirectoryNode *parent = nullptr; ///< that of the topmost ones is the root, which is not shown
    int row = -1;                    ///< among the shown children of the parent; -1 when it is filtered out
    std::vector<std::unique_ptr<DirectoryNode>> children;
    std::vector<DirectoryNode *> shownChildren;

    [[nodiscard]] bool isTopmost() const { return parent != nullptr && parent->parent == nullptr; }
    /// Whether its rooms, or it itself, have been told by the messenger.
    [[nodiscard]] bool isKnown() const { return kind == Kind::Room || isAsked || rooms > 0; }
    /// Whether its rooms are still to be asked for.
    [[nodiscard]] bool wantsRooms() const { return kind == Kind::Category && !isKnown(); }
    /// Whether a room can be created in it.
    [[nodiscard]] bool takesRooms() const;
};

/// The categories and their rooms as a tree. It owns the nodes, which stay for as long as it does. Rooms come
/// in batches, so that a category of ten thousand never holds the program up.
class DirectoryModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    using Elements = colXMLMessage::iterator;

    DirectoryModel() = default;

    /// The elements' children are categories below them. One without a code or a name is passed over, and one
    /// whose key is taken.
    void addCategories(const clsXMLMessage &list);
    void addError(const QString &text);

    /// Adds rooms, each below the category that it names, and gives the element to go on with. Passed over
    /// are those of unknown categories, those that are there, and those that lack a value. While a filter is
    /// set they show from the next setFilter() on.
    [[nodiscard]] Elements addRooms(Elements next, const Elements &end);
    /// The category's rooms need not be asked for again.
    void setAsked(DirectoryNode &category, bool hasFailed);

    /// Shows only what has the words in its name, with all that is above and below it; everything when they
    /// are empty.
    void setFilter(const QString &words);
    [[nodiscard]] const QString &filter() const { return m_filter; }

    /// The colour behind the rows; their own are chosen to be read on it.
    void setGround(const QColor &ground);

    /// Null for no index.
    [[nodiscard]] static DirectoryNode *node(const QModelIndex &index);
    /// No index when it is not shown.
    [[nodiscard]] QModelIndex indexOf(const DirectoryNode &node) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &child) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

private:
    using Nodes = std::vector<std::unique_ptr<DirectoryNode>>;

    void addBelow(DirectoryNode &parent, const clsXMLMessage &list);
    [[nodiscard]] std::unique_ptr<DirectoryNode> roomOf(const clsXMLMessage &element);
    void insert(DirectoryNode &category, Nodes rooms);
    bool takeShown(DirectoryNode &node, bool withAll);
    [[nodiscard]] const DirectoryNode &nodeOrRoot(const QModelIndex &index) const;

    DirectoryNode m_root;
    QHash<QString, DirectoryNode *> m_byKey;
    QString m_filter;
    QColor m_categoryInk;
    QColor m_roomInk;
};
