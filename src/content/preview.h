#pragma once

#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "content/map_catalog.h"
#include "content/model_catalog.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/pictures.h"

#include <functional>
#include <memory>
#include <string>

namespace gatehouse {

/// Sizes of the preview, in twips.
struct PreviewSizes {
    int height = 0;
    int width = 0;
    int pictureHeight = 0;
    int pictureWidth = 0;
    bool zoom = false;  ///< whether there is a button to zoom
    friend bool operator==(const PreviewSizes&, const PreviewSizes&) = default;
};

/// The floating window `q3levelshot`: the level shot of the selected map, or the icon of the selected skin. It never
/// takes the input focus.
class Preview {
public:
    Preview(const Ground& ground, Pictures& pictures, const MapTree& maptree, const ModelCatalog& models)
        : files_(ground.files),
          log_(ground.log),
          run_(ground.run),
          pictures_(pictures),
          maptree_(maptree),
          models_(models) {}

    /// Whether the window is on show.
    Observable<bool> q3levelshot{false};
    Observable<std::string> caption;
    Observable<std::shared_ptr<const Picture>> levelshot;
    Observable<bool> noPicture{false};  ///< what is shown is the picture that stands for none
    Observable<PreviewSizes> sizes;

    /// A person has selected a node of that tree, or clicked on the selected one.
    void showMap();
    void showSkin();
    /// A command has selected another map: a preview that is on show follows it.
    void followMap();
    /// One step larger, or back to the smallest.
    void zoom_Click();
    void hide() { q3levelshot.set(false); }
    void restoreDesign();

private:
    /// Shows a picture file of the program folder, and the one that stands for none where there is none.
    void show(const std::string& file, const std::string& title, const std::string& node, const PreviewSizes& fresh);
    PreviewSizes mapSizes() const;

    Files& files_;
    Log& log_;
    RunState& run_;
    Pictures& pictures_;
    const MapTree& maptree_;
    const ModelCatalog& models_;
};

}  // namespace gatehouse
