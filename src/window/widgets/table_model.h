#pragma once

#include "base/table.h"
#include "platform/qt/shown_text.h"
#include "window/widgets/follow.h"

#include <QAbstractItemModel>
#include <QColor>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace gatehouse {

/// The colour of a row, chosen at each painting so that it can be read on a light and on a dark ground.
enum class Ink { Normal, Grey, Red, Blue };
QColor inkColour(Ink ink);

/// The picture in front of a row: the name of one of our icons, and what it says.
struct RowPicture {
    std::string icon;
    std::string meaning;
};

/// What a model and its view ask about a table, whatever its rows are. Positions count from 1, columns from 0.
class TableSource {
public:
    virtual ~TableSource() = default;
    virtual int count() const = 0;
    /// The row above a row in a tree; 0 for a root.
    virtual int parent(int position) const = 0;
    virtual int columns() const = 0;
    virtual QString title(int column) const = 0;
    virtual QString text(int position, int column) const = 0;
    virtual Ink ink(int position) const = 0;
    virtual RowPicture picture(int position) const = 0;
    /// A filter keeps the row from being seen. What changes that tells so by the table's `reset`.
    virtual bool hidden(int position) const = 0;
    /// Numbers stand at the right of their column.
    virtual bool isNumber(int column) const = 0;

    virtual int current() const = 0;
    /// Makes a row the current one as a person does, and runs what follows from that.
    virtual void choose(int position, const std::function<void()>& then) = 0;
    virtual bool selected(int position) const = 0;
    /// Selects the rows for which `wanted` holds, and no others.
    virtual void selectWhere(const std::function<bool(int)>& wanted) = 0;
};

/// How the rows of a table look. What is left out is: no parent, no picture, the normal colour.
template <class Row>
struct TableLook {
    struct Column {
        std::string title;
        std::function<std::string(const Row&)> text;
        bool number = false;
    };
    std::vector<Column> columns;
    std::function<Ink(const Row&)> ink = {};
    std::function<RowPicture(const Row&)> picture = {};
    std::function<bool(const Row&)> hidden = {};
    /// The position of the row above one in a tree; a row stands behind the one above it.
    std::function<int(const Table<Row>&, int)> parent = {};
    /// What a person changes by choosing a row, if that is a setting.
    std::string choice = {};
};

/// A table of the core as an item model, flat or a tree. It shows the rows as they stand and keeps none of them; all
/// it has is which rows its views were told of. The table must outlive it.
class TableModel : public QAbstractItemModel {
    Q_OBJECT

public:
    template <class Row>
    TableModel(Table<Row>& table, TableLook<Row> look, QObject* parent = nullptr);
    ~TableModel() override;

    TableSource& source() const { return *source_; }
    /// The position of a row in the table; 0 for no row.
    int position(const QModelIndex& index) const;
    /// The index of a row's first column; invalid for 0, for a hidden row and for one that views weren't told of yet.
    QModelIndex indexOf(int position) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// The table's current row is another, or another has moved to its place.
    void currentMoved();
    /// Other rows of the table are selected.
    void selectionMoved();

private:
    struct Node;
    template <class Row>
    class Adapter;

    TableModel(std::unique_ptr<TableSource> source, QObject* parent);
    Node& nodeOf(const QModelIndex& parent) const;
    Node& parentFor(int position) const;
    void build();
    void insertRow(int position);
    void removeRow(int position);
    void changeRow(int position);
    void resetRows();

    std::unique_ptr<TableSource> source_;
    std::unique_ptr<Node> root_;
    std::vector<std::unique_ptr<Node>> nodes_;  ///< one for each row that views were told of, in the table's order
};

template <class Row>
class TableModel::Adapter : public TableSource {
public:
    Adapter(Table<Row>& table, TableLook<Row> look) : table_(table), look_(std::move(look)) {}

    int count() const override { return table_.count(); }
    int parent(int position) const override { return look_.parent ? look_.parent(table_, position) : 0; }
    int columns() const override { return static_cast<int>(look_.columns.size()); }
    QString title(int column) const override { return shown(look_.columns.at(static_cast<std::size_t>(column)).title); }
    QString text(int position, int column) const override {
        return shown(look_.columns.at(static_cast<std::size_t>(column)).text(table_.at(position)));
    }
    Ink ink(int position) const override { return look_.ink ? look_.ink(table_.at(position)) : Ink::Normal; }
    RowPicture picture(int position) const override {
        return look_.picture ? look_.picture(table_.at(position)) : RowPicture{};
    }
    bool hidden(int position) const override { return look_.hidden && look_.hidden(table_.at(position)); }
    bool isNumber(int column) const override { return look_.columns.at(static_cast<std::size_t>(column)).number; }
    int current() const override { return table_.current(); }
    void choose(int position, const std::function<void()>& then) override {
        table_.edits.make(look_.choice, [&] {
            table_.setCurrent(position);
            then();
        });
    }
    bool selected(int position) const override { return table_.selected(position); }
    void selectWhere(const std::function<bool(int)>& wanted) override { table_.selectWhere(wanted); }

private:
    Table<Row>& table_;
    TableLook<Row> look_;
};

template <class Row>
TableModel::TableModel(Table<Row>& table, TableLook<Row> look, QObject* parent)
    : TableModel(std::make_unique<Adapter<Row>>(table, std::move(look)), parent) {
    listen(this, table.rowInserted, [this](int position) { insertRow(position); });
    listen(this, table.rowRemoved, [this](int position) { removeRow(position); });
    listen(this, table.rowChanged, [this](int position) { changeRow(position); });
    listen(this, table.reset, [this] { resetRows(); });
    listen(this, table.currentChanged, [this] { Q_EMIT currentMoved(); });
    listen(this, table.selectionChanged, [this] { Q_EMIT selectionMoved(); });
}

}  // namespace gatehouse
