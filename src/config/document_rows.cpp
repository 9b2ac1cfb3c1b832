#include "config/document_rows.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace gatehouse {

namespace {

using Text = std::optional<std::string>;
using Words = std::vector<std::string>;

// Texts.

RowForm text(TextField& field) {
    return {[&field]() -> Text { return field.text(); },
            [&field](const std::string& value) { field.setText(value); },
            {&field}};
}

RowForm trimmedWhenWritten(TextField& field) {
    return {[&field]() -> Text { return trim(field.text()); }, text(field).take, {&field}};
}

RowForm trimmed(TextField& field) {
    return {
        trimmedWhenWritten(field).text, [&field](const std::string& value) { field.setText(trim(value)); }, {&field}};
}

// Checks and numbers.

RowForm strict(CheckField& field) {
    return {[&field]() -> Text { return std::to_string(field.value()); },
            [&field](const std::string& value) { field.setValue(strictInt16(value)); },
            {&field}};
}

RowForm strict(NumberField& field) {
    return {[&field]() -> Text { return std::to_string(field.value()); },
            [&field](const std::string& value) { field.setValue(strictInt16(value)); },
            {&field}};
}

RowForm byVal(CheckField& field) {
    return {strict(field).text, [&field](const std::string& value) { field.setValue(valInt16(value)); }, {&field}};
}

/// Off clears the check; on sets it, and so does any other text when `elseOn`.
RowForm words(CheckField& field, std::string_view off, std::string_view on, bool elseOn) {
    return {[&field, off, on]() -> Text { return std::string(field.value() != 0 ? on : off); },
            [&field, off, on, elseOn](const std::string& value) {
                if (value == off)
                    field.setValue(0);
                else if (elseOn || value == on)
                    field.setValue(1);
            },
            {&field}};
}

/// Written as 0 or 1, read as a number of bits: neither 0 nor 1 is 16, so what was saved always comes back set.
RowForm depthBits(CheckField& field) { return {strict(field).text, words(field, "16", "", true).take, {&field}}; }

/// Written from the pure server's check, read into its own.
RowForm allowDownload(const CheckField& pure, CheckField& download) {
    return {[&pure]() -> Text { return std::to_string(pure.value()); }, strict(download).take, {&download}};
}

// Sliders.

/// Rounds to the nearest position, a tie to the even one; what lies outside of the range is clamped.
void slide(SliderField& field, double position) {
    const auto& range = *field.range();
    field.setPosition(static_cast<int>(std::nearbyint(std::clamp(position, double(range.min), double(range.max)))));
}

RowForm position(SliderField& field) {
    return {[&field]() -> Text { return std::to_string(field.position()); },
            [&field](const std::string& value) { slide(field, val(value)); },
            {&field}};
}

RowForm hundredths(SliderField& field) {
    return {[&field]() -> Text { return hundredthsAsTenths(field.position()); },
            [&field](const std::string& value) { slide(field, val(value) * 100); },
            {&field}};
}

RowForm countedFromMaximum(SliderField& field) {
    const int maximum = field.range()->max;
    return {[&field, maximum]() -> Text { return std::to_string(maximum - field.position()); },
            [&field, maximum](const std::string& value) { slide(field, maximum - val(value)); },
            {&field}};
}

// Lists.

RowForm index(ListField& field, Log& log) {
    return {[&field]() -> Text { return std::to_string(field.index()); },
            [&field, &log](const std::string& value) { selectEntry(field, val(value), log); },
            {&field}};
}

/// One word for each entry; an entry without one writes no line.
Text wordOf(const ListField& field, const Words& entries) {
    const auto at = static_cast<std::size_t>(field.index());
    return at < entries.size() ? Text(entries[at]) : std::nullopt;
}

RowForm wordList(ListField& field, const Words& entries) {
    return {[&field, entries] { return wordOf(field, entries); },
            [&field, entries](const std::string& value) {
                const auto at = std::find(entries.begin(), entries.end(), value);
                if (at != entries.end()) field.setIndex(static_cast<int>(at - entries.begin()));
            },
            {&field}};
}

/// The same, but read as a number: "16 bits" is 16.
RowForm numberList(ListField& field, const Words& entries) {
    return {[&field, entries] { return wordOf(field, entries); },
            [&field, entries](const std::string& value) {
                const auto at = std::find_if(entries.begin(), entries.end(),
                                             [&value](const std::string& entry) { return val(entry) == val(value); });
                if (at != entries.end()) field.setIndex(static_cast<int>(at - entries.begin()));
            },
            {&field}};
}

/// Written as any index, read as one of the two words.
RowForm lighting(ListField& field, Log& log) {
    return {index(field, log).text, wordList(field, {"0", "1"}).take, {&field}};
}

/// The number kept with the selected entry; a list without one writes no line.
RowForm gameType(ListField& field) {
    return {[&field]() -> Text { return field.index() < 0 ? Text() : std::to_string(field.data()); },
            [&field](const std::string& value) {
                const auto& choices = field.choices();
                const auto at = std::find_if(choices.begin(), choices.end(), [wanted = val(value)](const Choice& one) {
                    return double(one.data) == wanted;
                });
                if (at != choices.end()) field.setIndex(static_cast<int>(at - choices.begin()));
            },
            {&field}};
}

// The exceptions.

RowForm model(DocumentHost& host) {
    return {[&host]() -> Text { return host.selectedModel(); },
            [&host](const std::string& value) { host.selectModel(value); }};
}

RowForm crosshair(LabelField& field) {
    const auto number = [](const std::string& value) { return shortestDecimal(val(value)); };
    return {[&field, number]() -> Text { return number(field.text()); },
            [&field, number](const std::string& value) { field.setText(number(value)); },
            {&field}};
}

RowForm sex(CheckField& male, CheckField& female) {
    return {[&male]() -> Text { return male.value() != 0 ? "male" : "female"; },
            [&male, &female](const std::string& value) {
                if (equalNoCase(value, "male")) male.setValue(1);
                if (equalNoCase(value, "female")) female.setValue(1);
            },
            {&male, &female}};
}

RowForm password(CheckField& use, TextField& pass) {
    return {[&use, &pass]() -> Text { return use.value() != 0 ? pass.text() : std::string(); },
            [&use, &pass](const std::string& value) {
                // The text first: the click of the check empties it where it has to.
                pass.setText(value);
                const bool any = !trim(value).empty();
                use.setValue(any ? 1 : 0);
                pass.enabled.set(any);
            },
            {&use, &pass}};
}

RowForm randomBots(SettingsDocument& doc, CommandFlags& flags) {
    return {strict(doc.q3randbots).text,
            [&doc, &flags](const std::string& value) {
                doc.q3randbots.setValue(valInt16(value));
                const bool random = doc.q3randbots.value() == 1;
                doc.q3randskill.enabled.set(random);
                doc.q3randnum.enabled.set(random);
                flags.q3botlist.set(!random);
                flags.q3botadd.set(!random);
                flags.q3botdel.set(!random);
            },
            {&doc.q3randbots}};
}

RowForm constant(std::string_view word) {
    return {[word]() -> Text { return std::string(word); }, [](const std::string&) {}};
}

RowForm dropped() {
    return {[]() -> Text { return std::nullopt; }, [](const std::string&) {}};
}

}  // namespace

void selectEntry(ListField& list, double index, Log& log) {
    const double whole = std::nearbyint(index);
    if (whole < -1 || whole >= double(list.choices().size())) {
        log.logEvent("No entry " + shortestDecimal(whole) + " in the list " + list.name(), true);
        return;
    }
    list.setIndex(static_cast<int>(whole));
}

std::vector<DocumentRow> setaRows(RowTargets targets) {
    auto& [d, flags, host, log] = targets;
    constexpr bool kCommentBehind = true;
    return {
        {"sensitivity", text(d.sensitivity)},
        {"rate", trimmedWhenWritten(d.q3rate)},
        {"snaps", position(d.q3snaps)},
        {"com_maxfps", text(d.com_maxfps)},
        {"com_blood", strict(d.com_blood)},
        {"cl_run", strict(d.cl_run)},
        {"cl_mouseaccel", strict(d.cl_mouseaccel)},
        {"cl_motd", strict(d.cl_motd)},
        {"m_filter", strict(d.m_filter)},
        {"invertmouse", strict(d.invertmouse)},
        {"name", trimmedWhenWritten(d.q3playername)},
        {"model", model(host)},
        {"color", text(d.q3fxcolor)},
        {"handicap", trimmedWhenWritten(d.q3handicap)},
        {"sex", sex(d.q3sexmale, d.q3sexfemale), kCommentBehind},

        {"r_allowextensions", byVal(d.q3GLext)},
        {"r_gamma", hundredths(d.q3brightness)},
        {"r_picmip", countedFromMaximum(d.q3texdetail)},
        {"r_preloadtextures", strict(d.r_preloadtextures)},
        {"r_detailtextures", strict(d.r_detailtextures)},
        {"r_mode", index(d.q3vidres, log)},
        {"r_texturebits", numberList(d.q3texquality, {"0", "16", "32"})},
        {"r_colorbits", numberList(d.q3colordepth, {"0", "16", "32"})},
        {"r_depthbits", depthBits(d.r_depthbits)},
        {"r_finish", byVal(d.q3syncframe)},
        {"r_fullscreen", byVal(d.q3fullscreen)},
        {"r_vertexlight", lighting(d.q3lighting, log)},
        {"r_subdivisions", wordList(d.q3geometry, {"20", "4"})},
        {"r_smp", strict(d.r_smp)},
        {"r_flares", strict(d.r_flares)},
        {"r_fastsky", byVal(d.q3fastsky)},
        {"r_drawsun", strict(d.r_drawsun)},
        {"r_dynamiclight", byVal(d.q3dynamiclight)},
        {"r_texturemode", words(d.q3trilinear, "GL_LINEAR_MIPMAP_NEAREST", "GL_LINEAR_MIPMAP_LINEAR", true)},
        {"r_railwidth", text(d.r_railwidth)},
        {"r_railcorewidth", text(d.r_railcorewidth)},
        {"r_railsegmentlength", text(d.r_railsegmentlength), kCommentBehind},
        {"r_primitives", dropped()},

        {"s_volume", hundredths(d.q3effectsvol)},
        {"s_musicvolume", hundredths(d.q3musicvol)},
        {"s_khz", words(d.q3soundquality, "11", "22", false)},
        {"s_usingA3D", byVal(d.q3a3d), kCommentBehind},

        {"cg_viewsize", position(d.q3screensize)},
        {"cg_shadows", index(d.cg_shadows, log)},
        {"cg_brasstime", words(d.q3brass, "0", "1250", true)},
        {"cg_drawcrosshair", crosshair(d.chindex)},
        {"cg_drawcrosshairnames", byVal(d.q3identifytarget)},
        {"cg_autoswitch", byVal(d.cg_autoswitch)},
        {"cg_drawgun", strict(d.cg_drawgun)},
        {"cg_zoomfov", text(d.cg_zoomfov)},
        {"cg_fov", text(d.cg_fov)},
        {"cg_gibs", strict(d.cg_gibs)},
        {"cg_draw2d", strict(d.cg_draw2d)},
        {"cg_drawstatus", strict(d.cg_drawstatus)},
        {"cg_drawtimer", strict(d.cg_drawtimer)},
        {"cg_drawfps", strict(d.cg_drawfps)},
        {"cg_drawsnapshot", strict(d.cg_drawsnapshot)},
        {"cg_draw3dicons", strict(d.cg_draw3dicons)},
        {"cg_drawicons", strict(d.drawicons)},
        {"cg_drawammowarning", strict(d.cg_drawammowarning)},
        {"cg_drawattacker", strict(d.cg_drawattacker)},
        {"cg_drawrewards", strict(d.cg_drawrewards)},
        {"cg_crosshairsize", text(d.cg_crosshairsize)},
        {"cg_crosshairx", text(d.cg_crosshairx)},
        {"cg_crosshairy", text(d.cg_crosshairy)},
        {"cg_simpleitems", byVal(d.q3simpleitems)},
        {"cg_lagometer", strict(d.cg_lagometer)},
        {"cg_railtrailtime", text(d.cg_railtrailtime)},
        {"cg_forcemodel", byVal(d.q3forcemodels)},
        {"cg_marks", byVal(d.q3wallmarks)},
        {"cg_DrawTeamOverlay", byVal(d.q3teamoverlay), kCommentBehind},

        {"g_warmup", text(d.warmup)},
        {"g_gametype", gameType(d.q3gametype)},
        {"g_motd", trimmed(d.q3motd)},
        {"g_quadfactor", trimmed(d.q3quadfactor)},
        {"g_syncronousclients", strict(d.q3clientsync)},
        {"g_weaponsrespawn", text(d.q3weaptime)},
        {"g_allowvote", strict(d.q3allowvote)},
        {"g_dowarmup", strict(d.dowarmup)},
        {"g_teamautojoin", strict(d.autojoin)},
        {"g_teamforcebalance", strict(d.forcebalance), kCommentBehind},

        {"ui_ffa_fraglimit", strict(d.ui_ffa_fraglimit)},
        {"ui_ffa_timelimit", strict(d.ui_ffa_timelimit)},
        {"ui_tourney_fraglimit", strict(d.ui_tourney_fraglimit)},
        {"ui_tourney_timelimit", strict(d.ui_tourney_timelimit)},
        {"ui_team_fraglimit", strict(d.ui_team_fraglimit)},
        {"ui_team_timelimit", strict(d.ui_team_timelimit)},
        {"ui_team_friendly", strict(d.ui_team_friendly)},
        {"ui_ctf_capturelimit", strict(d.ui_ctf_capturelimit)},
        {"ui_ctf_timelimit", strict(d.ui_ctf_timelimit)},
        {"ui_ctf_friendly", strict(d.ui_ctf_friendly), kCommentBehind},

        {"sv_hostname", text(d.q3hostname)},
        {"sv_maxrate", text(d.q3caprate)},
        {"sv_maxclients", text(d.q3playerlimit)},
        {"sv_privatepassword", password(d.q3usepass, d.q3serverpass)},
        {"rconpassword", password(d.q3userconpass, d.q3rconpass)},
        {"sv_pure", strict(d.q3pure)},
        {"sv_allowdownload", allowDownload(d.q3pure, d.sv_allowdownload)},
        {"sv_maxping", text(d.sv_maxping)},
        {"sv_minping", text(d.sv_minping)},
        {"bot_nochat", strict(d.q3bot_nochat)},
        {"bot_rocketjump", strict(d.q3botrjump)},
        {"bot_fastchat", strict(d.q3botfastchat)},
        {"bot_minplayers", text(d.q3minplayers), kCommentBehind},
    };
}

std::vector<DocumentRow> srvrRows(RowTargets targets) {
    auto& d = targets.doc;
    return {
        {"langame", byVal(d.q3langame)}, {"gamedir", constant("baseq3")}, {"hunksize", text(d.q3hunksize)},
        {"nic", text(d.q3serverip)},     {"port", text(d.q3serverport)},  {"cheats", strict(d.q3cheats)},
    };
}

std::vector<DocumentRow> botsRows(RowTargets targets) {
    auto& d = targets.doc;
    return {
        {"random", randomBots(d, targets.flags)},
        {"randomnum", text(d.q3randnum)},
        {"randomskill", text(d.q3randskill)},
    };
}

}  // namespace gatehouse
