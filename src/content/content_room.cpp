#include "content/content_room.h"

#include <algorithm>

namespace gatehouse {

void ContentRoom::selectModel(const std::string& path) {
    if (!models.selectModel(path)) return;
    std::string choice = models.selectedModel();
    std::replace(choice.begin(), choice.end(), '\\', '/');
    doc_.currmodel.setText(choice);
}

}  // namespace gatehouse
