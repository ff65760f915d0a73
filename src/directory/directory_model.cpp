#include "directory/directory_model.h"

#include "core/numbers.h"
#include "core/shown_name.h"

#include <QFont>

#include <cmath>
#include <map>

namespace {

constexpr int batch = 500;
constexpr qsizetype longestShownName = 200; // a longer one would hold up the drawing of its row

/// What the name leaves of itself when it is shown; the other text where that is nothing.
QString onOneLine(const QString &name, const QString &otherwise)
{
    QString line = shownName(name.left(longestShownName));
    for (QChar &c : line) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator) {
            c = u' ';
        }
    }
    return line.trimmed().isEmpty() ? otherwise.left(longestShownName) : line;
}

QString textOf(const DirectoryNode &node)
{
    if (node.kind == DirectoryNode::Kind::Room) {
        return node.shownName % u" (members: " % node.members % u')';
    }
    QString text = node.shownName;
    if (node.hasFailed) {
        text += u"(ERR)";
    }
    if (node.rooms > 0) {
        text += u" (channels: " % QString::number(node.rooms) % u')';
    }
    return text;
}

/// Between 0 and 1, as the eye has it.
double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(double light, double dark)
{
    return (light + 0.05) / (dark + 0.05);
}

/// On a dark ground, the colour with as much white as it needs to be read.
QColor readableOn(const QColor &ground, const QColor &ink)
{
    constexpr double darkest = 0.18; // middle grey
    const double dark = luminance(ground);
    const double wanted = qMin(6.0, 0.7 * contrast(1, dark));
    QColor tint = ink;
    for (int white = 1; white <= 10 && dark < darkest && contrast(luminance(tint), dark) < wanted; ++white) {
        const auto mixed = [&](int part) { return part + (255 - part) * white / 10; };
        tint = QColor(mixed(ink.red()), mixed(ink.green()), mixed(ink.blue()));
    }
    return tint;
}

} // namespace

bool DirectoryNode::takesRooms() const
{
    return kind == Kind::Category && (isTopmost() || children.empty() || rooms > 0);
}

void DirectoryModel::addCategories(const clsXMLMessage &list)
{
    beginResetModel();
    addBelow(m_root, list);
    takeShown(m_root, false);
    endResetModel();
}

/// As deep as the parser lets elements nest.
void DirectoryModel::addBelow(DirectoryNode &parent, const clsXMLMessage &list)
{
    for (const clsXMLMessage &element : list.XMLMessage) {
        const QString code = element.value(u"g").value_or(QStringView()).toString();
        const auto name = element.value(u"nm");
        const QString key = &parent == &m_root ? code : QString(parent.key % u'-' % code);
        if (code.isEmpty() || !name || m_byKey.contains(key)) {
            continue;
        }
        auto category = std::make_unique<DirectoryNode>();
        category->key = key;
        category->name = name->toString();
        category->shownName = onOneLine(category->name, key);
        category->parent = &parent;
        m_byKey.insert(key, category.get());
        parent.children.push_back(std::move(category));
        addBelow(*parent.children.back(), element);
    }
}

void DirectoryModel::addError(const QString &text)
{
    beginResetModel();
    auto error = std::make_unique<DirectoryNode>();
    error->kind = DirectoryNode::Kind::Error;
    error->key = u'!';
    error->name = text;
    error->shownName = text;
    error->parent = &m_root;
    m_root.children.push_back(std::move(error));
    takeShown(m_root, false);
    endResetModel();
}

DirectoryModel::Elements DirectoryModel::addRooms(Elements next, const Elements &end)
{
    std::map<DirectoryNode *, Nodes> arrived;
    for (int count = 0; next != end && count < batch; ++next, ++count) {
        if (auto room = roomOf(*next)) {
            arrived[room->parent].push_back(std::move(room));
        }
    }
    for (auto &[category, rooms] : arrived) {
        insert(*category, std::move(rooms));
    }
    return next;
}

/// Null for one that is passed over.
std::unique_ptr<DirectoryNode> DirectoryModel::roomOf(const clsXMLMessage &element)
{
    const auto id = element.value(u"cid");
    const auto name = element.value(u"cnm");
    const auto members = element.value(u"mc");
    DirectoryNode *category = m_byKey.value(element.value(u"g").value_or(QStringView()).toString());
    if (!id || !name || !members || category == nullptr || category->kind != DirectoryNode::Kind::Category ||
        leadingInt32(*id) == 0) {
        return nullptr;
    }
    auto room = std::make_unique<DirectoryNode>();
    room->kind = DirectoryNode::Kind::Room;
    room->key = category->key % u'~' % *id;
    room->name = name->toString();
    room->shownName = onOneLine(room->name, id->toString());
    room->members = onOneLine(members->toString(), {});
    room->roomId = leadingInt32(*id);
    room->parent = category;
    DirectoryNode *&known = m_byKey[room->key];
    if (known != nullptr) {
        return nullptr;
    }
    known = room.get();
    return room;
}

void DirectoryModel::insert(DirectoryNode &category, Nodes rooms)
{
    const QModelIndex place = indexOf(category);
    const auto first = static_cast<int>(category.shownChildren.size());
    const auto count = static_cast<int>(rooms.size());
    const bool isShown = m_filter.isEmpty();
    if (isShown) {
        beginInsertRows(place, first, first + count - 1);
    }
    for (auto &room : rooms) {
        if (isShown) {
            room->row = static_cast<int>(category.shownChildren.size());
            category.shownChildren.push_back(room.get());
        }
        category.children.push_back(std::move(room));
    }
    category.rooms += count;
    if (isShown) {
        endInsertRows();
    }
    Q_EMIT dataChanged(place, place);
}

void DirectoryModel::setAsked(DirectoryNode &category, bool hasFailed)
{
    category.isAsked = true;
    category.hasFailed = hasFailed;
    const QModelIndex place = indexOf(category);
    Q_EMIT dataChanged(place, place);
}

void DirectoryModel::setFilter(const QString &words)
{
    beginResetModel();
    m_filter = words;
    takeShown(m_root, false);
    endResetModel();
}

/// Whether the node is shown: with all, because of its name, or for what is below it.
bool DirectoryModel::takeShown(DirectoryNode &node, bool withAll)
{
    const bool matches = withAll || node.shownName.contains(m_filter, Qt::CaseInsensitive);
    node.shownChildren.clear();
    for (const auto &child : node.children) {
        child->row = -1;
        if (takeShown(*child, matches)) {
            child->row = static_cast<int>(node.shownChildren.size());
            node.shownChildren.push_back(child.get());
        }
    }
    return matches || !node.shownChildren.empty();
}

void DirectoryModel::setGround(const QColor &ground)
{
    m_categoryInk = readableOn(ground, QColor(0, 0, 255));
    m_roomInk = readableOn(ground, QColor(255, 0, 0));
}

DirectoryNode *DirectoryModel::node(const QModelIndex &index)
{
    return static_cast<DirectoryNode *>(index.internalPointer());
}

QModelIndex DirectoryModel::indexOf(const DirectoryNode &node) const
{
    return node.row < 0 ? QModelIndex() : createIndex(node.row, 0, &node);
}

const DirectoryNode &DirectoryModel::nodeOrRoot(const QModelIndex &index) const
{
    return index.isValid() ? *node(index) : m_root;
}

QModelIndex DirectoryModel::index(int row, int column, const QModelIndex &parent) const
{
    const auto &shown = nodeOrRoot(parent).shownChildren;
    if (column != 0 || row < 0 || row >= static_cast<int>(shown.size())) {
        return {};
    }
    return createIndex(row, 0, shown[static_cast<std::size_t>(row)]);
}

QModelIndex DirectoryModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? indexOf(*node(child)->parent) : QModelIndex();
}

int DirectoryModel::rowCount(const QModelIndex &parent) const
{
    return static_cast<int>(nodeOrRoot(parent).shownChildren.size());
}

int DirectoryModel::columnCount(const QModelIndex & /*parent*/) const
{
    return 1;
}

QVariant DirectoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const DirectoryNode &node = *DirectoryModel::node(index);
    const bool isRoom = node.kind == DirectoryNode::Kind::Room;
    if (role == Qt::DisplayRole) {
        return textOf(node);
    }
    if (role == Qt::ToolTipRole) { // which would take a stranger's name for markup
        return QString(u"<span>" % textOf(node).toHtmlEscaped() % u"</span>");
    }
    if (role == Qt::ForegroundRole && (isRoom || node.rooms > 0)) {
        return isRoom ? m_roomInk : m_categoryInk;
    }
    if (role == Qt::FontRole && (isRoom || node.rooms > 0)) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return {};
}
