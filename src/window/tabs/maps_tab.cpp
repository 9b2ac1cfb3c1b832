#include "base/text.h"
#include "config/settings_document.h"
#include "content/content_room.h"
#include "window/rules/rotation_rules.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/table_tools.h"
#include "window/widgets/table_view.h"
#include "window/widgets/tree_search.h"
#include "window/widgets/twips.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kLeastTree = 1200;  // twips
constexpr int kNameLetters = 18;

std::string mapIcon(MapImage image) {
    switch (image) {
        case MapImage::ClosedGroup:
            return "group-closed";
        case MapImage::OpenGroup:
            return "group-open";
        case MapImage::UsedMap:
            return "map-used";
        case MapImage::FreeMap:
            break;
    }
    return "map-free";
}

/// The row of a node's group; groups stand in front of what is in them.
int groupOf(const MapTree& maptree, int position) {
    const std::string& group = maptree.at(position).parent;
    if (group.empty()) return 0;
    for (int above = 1; above < position; ++above)
        if (maptree.at(above).key == group) return above;
    return 0;
}

void setGroupOpen(MapTree& maptree, int position, bool open) {
    const MapImage now = maptree.at(position).image;
    if (now != MapImage::ClosedGroup && now != MapImage::OpenGroup) return;
    maptree.update(position,
                   [open](MapEntry& node) { node.image = open ? MapImage::OpenGroup : MapImage::ClosedGroup; });
}

/// Runs a rule whenever a widget gets the input focus.
class FocusWatch : public QObject {
public:
    FocusWatch(QWidget* watched, std::function<void()> rule) : QObject(watched), rule_(std::move(rule)) {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) rule_();
        return false;
    }

private:
    std::function<void()> rule_;
};

TableView* makeTree(ContentRoom& content, RotationRules& rules) {
    MapTree& maptree = content.maps.maptree;
    auto* tree = new TableView(new TableModel(
        maptree, TableLook<MapEntry>{.columns = {{"Map", [](const MapEntry& node) { return trim(node.text); }}},
                                     .ink = [](const MapEntry& node) { return node.used ? Ink::Grey : Ink::Normal; },
                                     .picture =
                                         [](const MapEntry& node) {
                                             return RowPicture{mapIcon(node.image), node.used ? "In the rotation" : ""};
                                         },
                                     .parent = groupOf}));
    tree->setObjectName("maptree");
    tree->setAccessibleName(QObject::tr("Maps"));
    tree->setHeaderHidden(true);
    const auto follower = [tree, &maptree](bool open) {
        return [tree, &maptree, open](const QModelIndex& index) {
            setGroupOpen(maptree, static_cast<TableModel*>(tree->model())->position(index), open);
        };
    };
    QObject::connect(tree, &QTreeView::expanded, tree, follower(true));
    QObject::connect(tree, &QTreeView::collapsed, tree, follower(false));
    new FocusWatch(tree, [&rules] { rules.maptree_GotFocus(); });
    QObject::connect(tree, &TableView::rowChosen, tree, [&content] { content.maptree_NodeClick(); });
    QObject::connect(tree, &TableView::currentClicked, tree, [&content] { content.maptree_NodeClick(); });
    return tree;
}

TableView* makeList(Rotation& maplist, RotationRules& rules) {
    // The rows stand in the order of their position texts; the texts themselves tell a reader nothing more.
    auto* list = new TableView(new TableModel(
        maplist, TableLook<RotationRow>{.columns = {{"Map", [](const RotationRow& row) { return trim(row.name); }},
                                                    {"Description", &RotationRow::description}}}));
    list->setObjectName("maplist");
    list->setAccessibleName(QObject::tr("Map Rotation"));
    list->setRootIsDecorated(false);
    list->setColumnLetters({kNameLetters});
    list->setEmptyText(QObject::tr("No maps yet. Choose one on the left and press Insert."));
    new FocusWatch(list, [&rules] { rules.maplist_GotFocus(); });
    return list;
}

/// The catalog's own commands, and those of the preview.
QToolBar* makeCatalogTools(TableView& tree, ContentRoom& content) {
    MapCommands& commands = content.mapCommands;
    QToolBar* tools = makeTableTools("mtool3", QObject::tr("Maps of the Game"));
    addTableTool(*tools, tree, {"mtool3_2", nullptr, [&commands] { commands.scanForMaps(); }});
    addTableTool(*tools, tree, {"mtool3_3", nullptr, [&commands] { commands.addMap(); }});
    addTableTool(*tools, tree, {"mtool3_4", nullptr, [&commands] { commands.deleteMap(); }});
    Preview& preview = content.preview;
    addTableCommand(tree, {"zoom", &preview.q3levelshot, [&preview] { preview.zoom_Click(); }});
    addHidePicture(tree, preview.q3levelshot, [&preview] { preview.hide(); });
    return tools;
}

QWidget* makePane(const QString& heading, QToolBar* tools, TableView* view, QWidget* search = nullptr) {
    auto* pane = new QWidget;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins({});
    auto* label = new QLabel(heading);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setBuddy(view);
    auto* top = new QHBoxLayout;
    top->addWidget(label);
    top->addStretch(1);
    top->addWidget(tools);
    column->addLayout(top);
    if (search) column->addWidget(search);
    column->addWidget(view, 1);
    return pane;
}

}  // namespace

QWidget* makeMapsTab(SettingsDocument& doc, ContentRoom& content, RotationRules& rules, CommandFlags& flags) {
    TableView* tree = makeTree(content, rules);
    TableView* list = makeList(doc.maplist, rules);
    listen(tree, rules.focusWanted, [tree, list](std::string_view pane) {
        (pane == RotationRules::kTree ? tree : list)->setFocus(Qt::OtherFocusReason);
    });

    QToolBar* rotateTools = makeTableTools("mtool2_tree", QObject::tr("Catalog"));
    addTableTool(*rotateTools, *tree, {"mtool2_2", &flags.mtool2[2], [&rules] { rules.addToRotation(); }});
    auto* search = new QWidget;
    auto* row = new QHBoxLayout(search);
    row->setContentsMargins({});
    row->addWidget(new TreeSearch(*tree, QObject::tr("Search maps")), 1);
    row->addWidget(rotateTools);
    QToolBar* rotationTools = makeTableTools("mtool1", QObject::tr("Rotation"));
    addTableTool(*rotationTools, *list, {"mtool2_1", &flags.mtool2[1], [&rules] { rules.removeFromRotation(); }});
    addTableTool(*rotationTools, *list, {"mtool1_1", &flags.mtool1[1], [&rules] { rules.moveUp(); }});
    addTableTool(*rotationTools, *list, {"mtool1_2", &flags.mtool1[2], [&rules] { rules.moveDown(); }});

    auto* split = new QSplitter(Qt::Horizontal);
    split->setObjectName("mapsplit");
    split->setChildrenCollapsible(false);
    split->addWidget(makePane(QObject::tr("Maps"), makeCatalogTools(*tree, content), tree, search));
    split->addWidget(makePane(QObject::tr("Rotation"), rotationTools, list));
    tree->setMinimumWidth(pixels(kLeastTree));
    for (int pane : {0, 1}) split->setStretchFactor(pane, 1);
    return split;
}

}  // namespace gatehouse
