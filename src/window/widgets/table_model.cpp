#include "window/widgets/table_model.h"

#include "window/widgets/icons.h"

#include <QGuiApplication>
#include <QPalette>

namespace gatehouse {

namespace {

QColor mixed(const QColor& a, const QColor& b, double share) {
    const auto part = [share](double x, double y) { return static_cast<float>(x * share + y * (1 - share)); };
    return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()), part(a.blueF(), b.blueF()));
}

}  // namespace

QColor inkColour(Ink ink) {
    constexpr double kGreyShare = 0.6;
    const QPalette palette = QGuiApplication::palette();
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const bool dark = ground.lightness() < text.lightness();
    switch (ink) {
        case Ink::Grey: return mixed(text, ground, kGreyShare);
        case Ink::Red: return dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xc0, 0x10, 0x10);
        case Ink::Blue: return dark ? QColor(0x82, 0xb1, 0xff) : QColor(0x10, 0x40, 0xc0);
        case Ink::Normal: break;
    }
    return text;
}

/// A row's place among its siblings.
struct TableModel::Node {
    int position = 0;  ///< 0 for the root, and for a row that is just being taken out
    Node* above = nullptr;
    int row = 0;              ///< -1 for a hidden one
    std::vector<Node*> children;
};

TableModel::TableModel(std::unique_ptr<TableSource> source, QObject* parent)
    : QAbstractItemModel(parent), source_(std::move(source)) {
    build();
}

TableModel::~TableModel() = default;

void TableModel::build() {
    root_ = std::make_unique<Node>();
    nodes_.clear();
    nodes_.reserve(static_cast<std::size_t>(source_->count()));
    for (int position = 1; position <= source_->count(); ++position) {
        Node& above = parentFor(position);
        const bool hidden = source_->hidden(position);
        const int row = hidden ? -1 : static_cast<int>(above.children.size());
        nodes_.push_back(std::make_unique<Node>(Node{position, &above, row, {}}));
        if (!hidden) above.children.push_back(nodes_.back().get());
    }
}

TableModel::Node& TableModel::parentFor(int position) const {
    const int above = source_->parent(position);
    const bool told = above > 0 && above <= static_cast<int>(nodes_.size());
    return told ? *nodes_[static_cast<std::size_t>(above - 1)] : *root_;
}

void TableModel::insertRow(int position) {
    const int told = static_cast<int>(nodes_.size());
    if (told == source_->count()) return;  // an event from inside an event has told it already
    if (position != told + 1 || position != source_->count()) return resetRows();
    Node& above = parentFor(position);
    if (source_->hidden(position)) {
        nodes_.push_back(std::make_unique<Node>(Node{position, &above, -1, {}}));
        return;
    }
    const int row = static_cast<int>(above.children.size());
    beginInsertRows(indexOf(above.position), row, row);
    nodes_.push_back(std::make_unique<Node>(Node{position, &above, row, {}}));
    above.children.push_back(nodes_.back().get());
    endInsertRows();
}

void TableModel::removeRow(int position) {
    const int told = static_cast<int>(nodes_.size());
    if (told == source_->count()) return;
    if (position > told || told != source_->count() + 1) return resetRows();
    const auto place = nodes_.begin() + (position - 1);
    // A row that others hang from moves them to another place in the tree.
    if (!(*place)->children.empty()) return resetRows();
    // The table has moved on: until the views know, the other rows go by their new positions.
    const std::unique_ptr<Node> gone = std::move(*place);
    nodes_.erase(place);
    gone->position = 0;
    for (std::size_t i = static_cast<std::size_t>(position - 1); i < nodes_.size(); ++i)
        nodes_[i]->position = static_cast<int>(i) + 1;
    if (gone->row < 0) return;
    std::vector<Node*>& siblings = gone->above->children;
    beginRemoveRows(indexOf(gone->above->position), gone->row, gone->row);
    siblings.erase(siblings.begin() + gone->row);
    for (std::size_t i = static_cast<std::size_t>(gone->row); i < siblings.size(); ++i)
        siblings[i]->row = static_cast<int>(i);
    endRemoveRows();
}

void TableModel::changeRow(int position) {
    const QModelIndex first = indexOf(position);
    if (first.isValid()) Q_EMIT dataChanged(first, first.siblingAtColumn(columnCount() - 1));
}

void TableModel::resetRows() {
    beginResetModel();
    build();
    endResetModel();
}

TableModel::Node& TableModel::nodeOf(const QModelIndex& parent) const {
    return parent.isValid() ? *static_cast<Node*>(parent.internalPointer()) : *root_;
}

int TableModel::position(const QModelIndex& index) const { return index.isValid() ? nodeOf(index).position : 0; }

QModelIndex TableModel::indexOf(int position) const {
    if (position < 1 || position > static_cast<int>(nodes_.size())) return {};
    Node* node = nodes_[static_cast<std::size_t>(position - 1)].get();
    if (node->row < 0) return {};
    return createIndex(node->row, 0, node);
}

QModelIndex TableModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column < 0 || column >= columnCount(parent)) return {};
    return createIndex(row, column, nodeOf(parent).children[static_cast<std::size_t>(row)]);
}

QModelIndex TableModel::parent(const QModelIndex& child) const {
    if (!child.isValid()) return {};
    Node* above = nodeOf(child).above;
    return above == root_.get() ? QModelIndex() : createIndex(above->row, 0, above);
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(nodeOf(parent).children.size());
}

int TableModel::columnCount(const QModelIndex&) const { return source_->columns(); }

QVariant TableModel::data(const QModelIndex& index, int role) const {
    const int row = position(index);
    if (row == 0 || row > source_->count()) return {};
    const bool first = index.column() == 0;
    switch (role) {
        case Qt::DisplayRole: return source_->text(row, index.column());
        case Qt::TextAlignmentRole:
            return source_->isNumber(index.column()) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
        case Qt::ForegroundRole: {
            const Ink ink = source_->ink(row);
            return ink == Ink::Normal ? QVariant() : inkColour(ink);
        }
        case Qt::DecorationRole: {
            const std::string name = first ? source_->picture(row).icon : std::string();
            return name.empty() ? QVariant() : QVariant(icon(shown(name)));
        }
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole: {
            const std::string meaning = first ? source_->picture(row).meaning : std::string();
            return meaning.empty() ? QVariant() : QVariant(shown(meaning));
        }
        default: return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    if (role == Qt::TextAlignmentRole && source_->isNumber(section)) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return source_->title(section);
}

}  // namespace gatehouse
