#include "content/pak_maps_form.h"

#include "platform/forms.h"

#include <utility>

namespace gatehouse {

std::optional<PakMap> PakMapsForm::choose(std::vector<PakMap> maps) {
    chosen_.reset();
    paklist.setRows(std::move(maps), 1);
    showModal(q3pakmaps, events_);
    return std::exchange(chosen_, std::nullopt);
}

void PakMapsForm::pakOK_Click() {
    if (paklist.current() != 0) chosen_ = paklist.at(paklist.current());
    q3pakmaps.set(false);
}

}  // namespace gatehouse
