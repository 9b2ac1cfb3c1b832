#pragma once

#include "base/runtime_failure.h"
#include "base/text.h"
#include "config/document_host.h"

#include <string>
#include <vector>

namespace gatehouse::fake {

/// The rooms above a document, as far as a document sees them.
class FakeHost : public DocumentHost {
public:
    std::string selectedModel() const override {
        if (model.empty()) throw RuntimeFailure("No model is selected");
        return model;
    }
    void selectModel(const std::string& path) override {
        for (const auto& one : models) {
            if (equalNoCase(one, path)) model = one;
        }
    }
    std::vector<ModVariable> modVariables() const override { return variables; }
    void setModVariable(const std::string& name, const std::string& value) override {
        for (auto& variable : variables) {
            if (!equalNoCase(variable.name, name)) continue;
            variable.value = value;
            return;
        }
    }
    void unmarkRotation() override { calls.push_back("unmark"); }
    void markRotation() override { calls.push_back("mark"); }
    bool hasServers() const override { return servers; }
    void sbar_GroupClick(std::int16_t group) override {
        calls.push_back("group " + std::to_string(group));
        if (failOnGroup) throw RuntimeFailure("No such group");
    }

    std::vector<std::string> models{"Sarge\\Default", "Visor\\Blue"};
    std::string model = "Sarge\\Default";
    std::vector<ModVariable> variables;
    bool servers = false;
    bool failOnGroup = false;
    std::vector<std::string> calls;
};

}  // namespace gatehouse::fake
