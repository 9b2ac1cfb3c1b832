#pragma once

#include "base/field.h"
#include "base/form.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/ground.h"

#include <optional>
#include <string>
#include <string_view>

namespace gatehouse {

/// A server's address in its two parts.
struct HostAndPort {
    std::string host;
    std::string port;
    friend bool operator==(const HostAndPort&, const HostAndPort&) = default;
};

/// The address that a text consists of, digits and dots with one ":" at most; nothing if the text is anything else. A
/// text that is too short to be an address counts as an empty one.
std::optional<HostAndPort> addressIn(std::string_view text);

/// The dialog `q3newip`: address and password of one server. It is hidden, not destroyed, when it ends: its fields keep
/// their text.
class AddressForm {
public:
    AddressForm(const Ground& ground, Clipboard& clipboard);
    AddressForm(const AddressForm&) = delete;
    AddressForm& operator=(const AddressForm&) = delete;

    /// Whether the dialog is on show.
    Form q3newip{"q3newip"};
    FieldGroup group{"q3newip"};
    TextField ip1{group,
                  {.name = "ip1",
                   .caption = "IP Address:",
                   .hint = "Numbers or a name, such as 192.168.0.7 or arena.example.org."}};
    TextField port{group, {.name = "port", .caption = "Port:", .hint = "Most servers listen on 27960."}};
    TextField q3pwd{group,
                    {.name = "q3pwd",
                     .caption = "Password:",
                     .hint = "Kept with the server for you to look up; the game asks for it itself."}};
    /// The dialog is for a server of the list, not for a new one.
    Observable<bool> editing{false};
    /// How the dialog ended: "OK" or "CANCEL".
    std::string iptag{kCancel};
    /// A field asks for the input focus.
    Signal<const TextField&> focusWanted;

    static constexpr std::string_view kOk = "OK";
    static constexpr std::string_view kCancel = "CANCEL";

    /// Shows the dialog and returns when it has ended. True if its fields are to be taken.
    bool ask();
    /// The address that the fields hold, as host, ":" and port.
    std::string address() const { return ip1.text() + ":" + port.text(); }

    void newipOK_Click();
    /// Escape and the title bar's close button as well.
    void newipCancel_Click();

    /// Puts the dialog back to where it is before its first showing; that is no change of the server list.
    void restoreDesign();

private:
    void q3newip_Activate();
    bool missing(const TextField& field, const std::string& message);

    Clipboard& clipboard_;
    Dialogs& dialogs_;
    EventLoop& events_;
    Log& log_;
    RunState& run_;
};

}  // namespace gatehouse
