#include "launch/filesout.h"

#include "base/numbers.h"
#include "base/text.h"
#include "launch/filesout_lines.h"

namespace gatehouse {

namespace {

using Doc = SettingsDocument;
using Host = DocumentHost;

/// Which of the two writers a line belongs to.
enum class Writer { Both, Player, Benchmark };

struct DisplayLine {
    std::string_view name;
    VariableForm form;
    Writer writer = Writer::Both;
};

/// "model/skin" in lower case; a path without a skin stands as it is.
VariableText modelAndSkin(const Doc&, const Host& host) {
    std::string path = host.selectedModel();
    const auto backslash = path.find('\\');
    if (backslash == std::string::npos) return path;
    path[backslash] = '/';
    return lower(path);
}

VariableText mousePitch(const Doc& doc, const Host&) { return doc.invertmouse.value() == 1 ? "-0.022" : "0.022"; }
VariableText sex(const Doc& doc, const Host&) { return doc.q3sexfemale.value() != 0 ? "female" : "male"; }
/// The reserved place of the sign stays inside the quotes.
VariableText gamma(const Doc& doc, const Host&) { return signedDecimal(doc.q3brightness.position() / 100.0); }
VariableText picmip(const Doc& doc, const Host&) { return std::to_string(3 - doc.q3texdetail.position()); }
VariableText brassTime(const Doc& doc, const Host&) { return doc.q3brass.value() == 1 ? "1250" : "0"; }
VariableText crosshair(const Doc& doc, const Host&) { return shortestDecimal(val(doc.chindex.text())); }
VariableText khz(const Doc& doc, const Host&) { return doc.q3soundquality.value() == 0 ? "11" : "22"; }

VariableText textureMode(const Doc& doc, const Host&) {
    return doc.q3trilinear.value() == 0 ? "GL_LINEAR_MIPMAP_NEAREST" : "GL_LINEAR_MIPMAP_LINEAR";
}

VariableText subdivisions(const Doc& doc, const Host&) {
    switch (doc.q3geometry.index()) {
        case 0:
            return "20";
        case 1:
            return "4";
        default:
            return std::nullopt;
    }
}

template <auto List>
VariableText bits(const Doc& doc, const Host&) {
    switch ((doc.*List).index()) {
        case 0:
            return "0";
        case 1:
            return "16";
        case 2:
            return "32";
        default:
            return std::nullopt;
    }
}

template <auto Slider>
VariableText volume(const Doc& doc, const Host&) {
    return hundredthsAsTenths((doc.*Slider).position());
}

constexpr DisplayLine kDisplayLines[] = {
    {"com_maxfps", asItStands<&Doc::com_maxfps>},
    {"com_blood", asItStands<&Doc::com_blood>},
    {"cl_run", asItStands<&Doc::cl_run>, Writer::Player},
    {"cl_mouseaccel", asItStands<&Doc::cl_mouseaccel>, Writer::Player},
    {"m_filter", asItStands<&Doc::m_filter>, Writer::Player},
    {"sensitivity", asItStands<&Doc::sensitivity>, Writer::Player},
    {"m_pitch", mousePitch, Writer::Player},
    {"rate", asItStands<&Doc::q3rate>, Writer::Player},
    {"snaps", asItStands<&Doc::q3snaps>, Writer::Player},
    {"name", asItStands<&Doc::q3playername>, Writer::Player},
    {"model", modelAndSkin, Writer::Player},
    {"color", asItStands<&Doc::q3fxcolor>, Writer::Player},
    {"handicap", asItStands<&Doc::q3handicap>, Writer::Player},
    {"sex", sex, Writer::Player},

    {"r_allowextensions", asItStands<&Doc::q3GLext>},
    {"r_gamma", gamma},
    {"r_picmip", picmip},
    {"r_preloadtextures", asItStands<&Doc::r_preloadtextures>},
    {"r_detailtextures", asItStands<&Doc::r_detailtextures>},
    {"r_mode", asItStands<&Doc::q3vidres>},
    {"r_texturebits", bits<&Doc::q3texquality>},
    {"r_colorbits", bits<&Doc::q3colordepth>},
    {"r_depthbits", asItStands<&Doc::r_depthbits>},
    {"r_finish", asItStands<&Doc::q3syncframe>},
    {"r_fullscreen", asItStands<&Doc::q3fullscreen>},
    {"r_vertexlight", asItStands<&Doc::q3lighting>},
    {"r_subdivisions", subdivisions},
    {"r_smp", asItStands<&Doc::r_smp>},
    {"r_flares", asItStands<&Doc::r_flares>},
    {"r_fastsky", asItStands<&Doc::q3fastsky>},
    {"r_drawsun", asItStands<&Doc::r_drawsun>},
    {"r_dynamiclight", asItStands<&Doc::q3dynamiclight>},
    {"r_texturemode", textureMode},
    {"r_railwidth", asItStands<&Doc::r_railwidth>, Writer::Player},
    {"r_railcorewidth", asItStands<&Doc::r_railcorewidth>, Writer::Player},
    {"r_railsegmentlength", asItStands<&Doc::r_railsegmentlength>, Writer::Player},

    {"s_volume", volume<&Doc::q3effectsvol>},
    {"s_musicvolume", volume<&Doc::q3musicvol>},
    {"s_khz", khz},
    {"seta s_usingA3D", asItStands<&Doc::q3a3d>},

    {"cg_viewsize", asItStands<&Doc::q3screensize>},
    {"cg_shadows", asItStands<&Doc::cg_shadows>},
    {"cg_brasstime", brassTime},
    {"cg_drawcrosshair", crosshair, Writer::Player},
    {"cg_drawcrosshairnames", asItStands<&Doc::q3identifytarget>, Writer::Player},
    {"cg_autoswitch", asItStands<&Doc::cg_autoswitch>, Writer::Player},
    {"cg_drawgun", asItStands<&Doc::cg_drawgun>},
    {"cg_zoomfov", asItStands<&Doc::cg_zoomfov>, Writer::Player},
    {"cg_fov", asItStands<&Doc::cg_fov>, Writer::Player},
    {"cg_gibs", asItStands<&Doc::cg_gibs>},
    {"cg_draw2d", asItStands<&Doc::cg_draw2d>},
    {"cg_drawstatus", asItStands<&Doc::cg_drawstatus>},
    {"cg_drawtimer", asItStands<&Doc::cg_drawtimer>},
    {"cg_drawfps", asItStands<&Doc::cg_drawfps>},
    {"cg_drawsnapshot", asItStands<&Doc::cg_drawsnapshot>},
    {"cg_draw3dicons", asItStands<&Doc::cg_draw3dicons>},
    {"cg_drawicons", asItStands<&Doc::drawicons>, Writer::Player},
    {"cg_drawammowarning", asItStands<&Doc::cg_drawammowarning>},
    {"cg_drawattacker", asItStands<&Doc::cg_drawattacker>},
    {"cg_drawrewards", asItStands<&Doc::cg_drawrewards>},
    {"cg_crosshairsize", asItStands<&Doc::cg_crosshairsize>, Writer::Player},
    {"cg_crosshairx", asItStands<&Doc::cg_crosshairx>, Writer::Player},
    {"cg_crosshairy", asItStands<&Doc::cg_crosshairy>, Writer::Player},
    {"cg_simpleitems", asItStands<&Doc::q3simpleitems>},
    {"cg_lagometer", asItStands<&Doc::cg_lagometer>, Writer::Player},
    {"cg_railtrailtime", asItStands<&Doc::cg_railtrailtime>, Writer::Player},
    {"cg_forcemodel", asItStands<&Doc::q3forcemodels>, Writer::Player},
    {"cg_marks", asItStands<&Doc::q3wallmarks>},
    {"cg_drawteamoverlay", asItStands<&Doc::q3teamoverlay>, Writer::Benchmark},
};

void writeDisplayLines(Writer writer, const Doc& doc, const Host& host, TextWriter& target) {
    for (const DisplayLine& line : kDisplayLines) {
        if (line.writer != Writer::Both && line.writer != writer) continue;
        if (const VariableText value = line.form(doc, host)) writeVariable(target, line.name, *value);
    }
}

}  // namespace

void GameConfig::WritePlayerVars() {
    writeTitle("Player/Display Variables:");
    writeDisplayLines(Writer::Player, from_.doc, from_.host, *CfgStream_);
    writeLine("//");
    writeModBlock(&ModOption::client);
    from_.log.logEvent("->Wrote player CFG vars OK");
}

void GameConfig::WriteBenchmarkVars() {
    WriteHeader();
    writeLine("");
    writeDisplayLines(Writer::Benchmark, from_.doc, from_.host, *CfgStream_);
    from_.log.logEvent("->Wrote benchmark CFG vars OK");
}

}  // namespace gatehouse
