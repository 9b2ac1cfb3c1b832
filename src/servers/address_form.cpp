#include "servers/address_form.h"

#include "base/text.h"
#include "platform/forms.h"

#include <cstddef>

namespace gatehouse {

namespace {

constexpr std::size_t kShortestAddress = 7;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::optional<HostAndPort> addressIn(std::string_view text) {
    HostAndPort found;
    if (text.size() < kShortestAddress) return found;
    std::string* part = &found.host;
    for (const char c : text) {
        const bool inHost = part == &found.host;
        if (isDigit(c) || (c == '.' && inHost))
            *part += c;
        else if (c == ':' && inHost)
            part = &found.port;
        else
            return std::nullopt;
    }
    return found;
}

AddressForm::AddressForm(const Ground& ground, Clipboard& clipboard)
    : clipboard_(clipboard), dialogs_(ground.dialogs), events_(ground.events), log_(ground.log), run_(ground.run) {
    // Whoever writes the address, this dialog itself included, makes the list one to be saved.
    ip1.changed.connect([this] { run_.ServerListChanged = true; });
}

bool AddressForm::ask() {
    q3newip_Activate();
    showModal(q3newip, events_);
    return iptag == kOk;
}

void AddressForm::q3newip_Activate() {
    log_.logEvent("new server address dialog loaded");
    log_.logEvent("checking clipboard");
    // A clipboard without text is one with an empty address: the fields come up empty, whatever they held.
    const auto found = addressIn(clipboard_.hasText() ? clipboard_.text() : std::string());
    if (!found) {
        log_.logEvent("no ip address found");
        return;
    }
    ip1.setText(found->host);
    port.setText(found->port);
    log_.logEvent("found ip address in clipboard.");
}

bool AddressForm::missing(const TextField& field, const std::string& message) {
    if (!trim(field.text()).empty()) return false;
    dialogs_.show({.title = "Error", .text = message, .icon = Icon::Stop});
    focusWanted.emit(field);
    return true;
}

void AddressForm::newipOK_Click() {
    if (missing(ip1, "The IP address must be filled in.")) return;
    if (missing(port, "The port number must be filled in.")) return;
    iptag = kOk;
    log_.logEvent("new server (" + address() + ")");
    q3newip.set(false);
}

void AddressForm::newipCancel_Click() {
    iptag = kCancel;
    log_.logEvent("user canceled new server");
    q3newip.set(false);
}

void AddressForm::restoreDesign() {
    editing.set(false);
    const bool changed = run_.ServerListChanged;
    for (Field* field : group.fields) field->restoreDesign();
    run_.ServerListChanged = changed;
    iptag = kCancel;
    q3newip.set(false);
}

}  // namespace gatehouse
