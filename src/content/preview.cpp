#include "content/preview.h"

#include "base/text.h"

namespace gatehouse {

namespace {

constexpr std::string_view kNoPicture = "ghnoshot.jpg";
constexpr int kPictureHeight = 1685;
constexpr int kPictureWidth = 2295;
constexpr std::int16_t kMostZoom = 3;
constexpr PreviewSizes kSkinSizes{2390, 2400, kPictureHeight, kPictureWidth, false};

}  // namespace

PreviewSizes Preview::mapSizes() const {
    const int zoom = run_.zoomLevel;
    return {zoom * kPictureHeight + 705, zoom * kPictureWidth + 105, zoom * kPictureHeight, zoom * kPictureWidth, true};
}

void Preview::showMap() {
    if (maptree_.current() == 0) return;
    const MapEntry& node = maptree_.at(maptree_.current());
    if (!isMap(node)) return hide();
    const long blank = find(node.text, " ");
    const std::string name = blank == 0 ? node.text : left(node.text, blank - 1);
    show(std::string(kLevelShotsFolder) + "\\" + name + ".jpg", "Map: " + name, node.text, mapSizes());
}

void Preview::showSkin() {
    const ModelTree& tree = models_.mdltree;
    if (tree.current() == 0) return;
    const ModelEntry& node = tree.at(tree.current());
    const std::string& model = node.parent == 0 ? node.text : tree.at(node.parent).text;
    const std::string skin = node.parent == 0 ? std::string(kDefaultSkin) : node.text;
    show("models\\players\\" + model + "\\icon_" + skin + ".BMP", "Model: " + model, node.text, kSkinSizes);
}

void Preview::followMap() {
    if (q3levelshot.get()) showMap();
}

void Preview::show(const std::string& file, const std::string& title, const std::string& node,
                   const PreviewSizes& fresh) {
    try {
        const bool there = files_.fileExists(run_.AppDir + file);
        const std::string path = run_.AppDir + (there ? file : std::string(kNoPicture));
        levelshot.set(std::make_shared<const Picture>(pictures_.open(path)));
        noPicture.set(!there);
        caption.set(title);
        if (q3levelshot.get()) return;
        sizes.set(fresh);
        q3levelshot.set(true);
    } catch (const RuntimeFailure& failure) {
        log_.logEvent("Error showing preview for " + node);
        log_.logEvent(failure.what(), true);
    }
}

void Preview::zoom_Click() {
    run_.zoomLevel = run_.zoomLevel == kMostZoom ? std::int16_t{1} : static_cast<std::int16_t>(run_.zoomLevel + 1);
    sizes.set(mapSizes());
}

void Preview::restoreDesign() {
    hide();
    levelshot.set(nullptr);
    noPicture.set(false);
    caption.set("");
    sizes.set({});
}

}  // namespace gatehouse
