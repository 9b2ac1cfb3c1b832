#pragma once

#include "base/log.h"
#include "base/table.h"
#include "platform/ground.h"

#include <span>
#include <string>
#include <string_view>

namespace gatehouse {

class Files;
struct RunState;

/// One node of the model tree: a model (no parent) or one of its skins.
struct ModelEntry {
    std::string key;
    std::string text;
    int parent = 0;  ///< position of the model's node; 0 for a model
};

using ModelTree = Table<ModelEntry>;

/// The skin that a model stands for where none is named.
inline constexpr std::string_view kDefaultSkin = "Default";

/// The models that the game comes with.
std::span<const std::string_view> standardModels();

/// The catalog of models and skins: the tree `mdltree`, the standard models and the file `usermdls.txt`.
class ModelCatalog {
public:
    explicit ModelCatalog(const Ground& ground) : files_(ground.files), log_(ground.log), run_(ground.run) {}

    /// The current row is the selected node.
    ModelTree mdltree;

    std::string userModelsPath() const;

    /// Empties the tree and fills it with the standard models and skins.
    void loadStandardModels();
    /// Adds the skins of `usermdls.txt`.
    void loadUserModels();

    /// Levels parted by backslashes, such as `Sarge\Krusade`.
    std::string fullPath(int position) const;
    bool hasSkins(int position) const;
    /// Full path of the selected node, with "\Default" behind a model that has skins. Fails if none is selected.
    std::string selectedModel() const;
    /// Selects the node of that path, in any case; false if there is none.
    bool selectModel(const std::string& path);

private:
    Files& files_;
    Log& log_;
    const RunState& run_;
};

}  // namespace gatehouse
