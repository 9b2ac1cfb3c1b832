#include "content/model_catalog.h"

#include "base/run_state.h"
#include "base/text.h"
#include "platform/files.h"

#include <array>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace gatehouse {

namespace {

constexpr std::string_view kUserModelsFile = "usermdls.txt";
constexpr std::string_view kTeamSkins[] = {"Red", "Blue"};
/// The node that a fresh tree selects: what the tab shows before any document.
constexpr std::string_view kStartNode = "Sarge\\Default";

constexpr std::array<std::string_view, 23> kModels = {
    "Anarki", "Biker", "Bitterman", "Bones", "Crash", "Doom",  "Grunt",  "Hunter", "Keel",  "Klesk", "Lucy", "Major",
    "Mynx",   "Orbb",  "Ranger",    "Razor", "Sarge", "Slash", "Sorlag", "Tankjr", "Uriel", "Visor", "Xaero"};

struct NamedSkin {
    std::string_view skin;
    std::string_view model;
};

constexpr std::array<NamedSkin, 19> kNamedSkins = {{
    {"Hossman", "Biker"}, {"Cadavre", "Biker"}, {"Slammer", "Biker"}, {"Stroggo", "Biker"}, {"Bones", "Bones"},
    {"Phobos", "Doom"},   {"Stripe", "Grunt"},  {"Flisk", "Klesk"},   {"Angel", "Lucy"},    {"Daemia", "Major"},
    {"Wrack", "Ranger"},  {"Patriot", "Razor"}, {"Krusade", "Sarge"}, {"Grrl", "Slash"},    {"Zael", "Uriel"},
    {"Gorre", "Visor"},   {"Harpy", "Hunter"},  {"Roderic", "Sarge"}, {"Yuriko", "Slash"},
}};

/// Positions of the models by their exact text; of two with the same text the first.
using ModelPositions = std::unordered_map<std::string, int>;

int addModel(ModelTree& mdltree, ModelPositions& models, const std::string& text) {
    const int position = mdltree.append({.key = text, .text = text});
    models.emplace(text, position);
    return position;
}

void addSkin(ModelTree& mdltree, int model, std::string key, std::string_view text) {
    mdltree.append({.key = std::move(key), .text = std::string(text), .parent = model});
}

/// True if the levels of a path are these two, in any case.
bool isPath(std::string_view path, std::string_view model, std::string_view skin) {
    return path.size() == model.size() + 1 + skin.size() && path[model.size()] == '\\' &&
           equalNoCase(path.substr(0, model.size()), model) && equalNoCase(path.substr(model.size() + 1), skin);
}

}  // namespace

std::span<const std::string_view> standardModels() { return kModels; }

void ModelCatalog::loadStandardModels() {
    mdltree.clear();
    ModelPositions models;
    for (const std::string_view model : kModels) addModel(mdltree, models, std::string(model));
    const auto addToAll = [this](std::string_view skin) {
        for (int model = 1; model <= static_cast<int>(kModels.size()); ++model) addSkin(mdltree, model, {}, skin);
    };
    addToAll(kDefaultSkin);
    for (const NamedSkin& one : kNamedSkins) addSkin(mdltree, models.at(std::string(one.model)), {}, one.skin);
    for (const std::string_view skin : kTeamSkins) addToAll(skin);
    selectModel(std::string(kStartNode));
}

std::string ModelCatalog::userModelsPath() const { return run_.AppDir + std::string(kUserModelsFile); }

void ModelCatalog::loadUserModels() {
    log_.logEvent("Opening usermdls.txt");
    std::unique_ptr<TextReader> file;
    try {
        file = files_.openText(userModelsPath());
    } catch (const FileFailure&) {
        log_.logEvent("Couldn't open usermdls.txt");
        return;
    }
    log_.logEvent("File opened OK");
    ModelPositions models;
    for (int position = 1; position <= mdltree.count(); ++position)
        if (mdltree.at(position).parent == 0) models.emplace(mdltree.at(position).text, position);
    int newModels = 0;
    int skins = 0;
    std::string line;
    while (file->readLine(line)) {
        const long slash = find(line, "/");
        if (slash == 0) {
            log_.logEvent("Couldn't parse mdl line:" + line);
            continue;
        }
        const std::string name = left(line, slash - 1);
        const auto known = models.find(name);
        if (known == models.end()) ++newModels;
        const int model = known != models.end() ? known->second : addModel(mdltree, models, name);
        addSkin(mdltree, model, "A" + std::to_string(++skins), mid(line, slash + 1));
        log_.logEvent("Loaded " + trim(line));
    }
    log_.logEvent(std::to_string(newModels) + " models/ " + std::to_string(skins) + " skins parsed OK");
}

std::string ModelCatalog::fullPath(int position) const {
    const ModelEntry& node = mdltree.at(position);
    return node.parent == 0 ? node.text : mdltree.at(node.parent).text + "\\" + node.text;
}

bool ModelCatalog::hasSkins(int position) const {
    for (int skin = position + 1; skin <= mdltree.count(); ++skin)
        if (mdltree.at(skin).parent == position) return true;
    return false;
}

std::string ModelCatalog::selectedModel() const {
    const int selected = mdltree.current();
    if (selected == 0) throw RuntimeFailure("No model is selected");
    const std::string path = fullPath(selected);
    return hasSkins(selected) ? path + "\\" + std::string(kDefaultSkin) : path;
}

bool ModelCatalog::selectModel(const std::string& path) {
    for (int position = 1; position <= mdltree.count(); ++position) {
        const ModelEntry& node = mdltree.at(position);
        const bool same =
            node.parent == 0 ? equalNoCase(node.text, path) : isPath(path, mdltree.at(node.parent).text, node.text);
        if (!same) continue;
        mdltree.setCurrent(position);
        return true;
    }
    return false;
}

}  // namespace gatehouse
