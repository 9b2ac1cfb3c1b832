#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gatehouse {

/// A variable of the chosen mod, as a document stores it.
struct ModVariable {
    std::string name;
    std::string value;
};

/// What a document needs from the rooms above it: the model tree, the chosen mod, the map tree and the modes.
class DocumentHost {
public:
    virtual ~DocumentHost() = default;

    /// Full path of the selected model node, with "\Default" behind a node that has skins. Fails if none is selected.
    virtual std::string selectedModel() const = 0;
    /// Selects the node whose full path equals the text in any case; nothing happens if there is none.
    virtual void selectModel(const std::string& path) = 0;

    /// The variables of the chosen mod in their order.
    virtual std::vector<ModVariable> modVariables() const = 0;
    /// Sets the first variable of that name, in any case; an unknown name is ignored.
    virtual void setModVariable(const std::string& name, const std::string& value) = 0;

    /// Takes the marks of use off all maps of the catalog.
    virtual void unmarkRotation() = 0;
    /// Marks every map of the catalog that stands in the rotation.
    virtual void markRotation() = 0;

    virtual bool hasServers() const = 0;
    /// Puts side bar and tabs into a mode.
    virtual void sbar_GroupClick(std::int16_t group) = 0;
};

}  // namespace gatehouse
