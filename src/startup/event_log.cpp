#include "startup/event_log.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace gatehouse {

namespace {

constexpr std::string_view kLogEnding = "errorlog.txt";
constexpr int kStatusMilliseconds = 1300;
constexpr int kSplashStep = 36;  // twips for each line

enum LogLevel { kSeriousErrors = 1, kEverything = 2 };

}  // namespace

EventLog::EventLog(Files& files, EventLoop& events, Clock& clock, RunState& run, OptionsForm& options,
                   SplashView& splash, MainView& q3)
    : files_(files), events_(events), clock_(clock), run_(run), options_(options), splash_(splash), q3_(q3) {
    stimer_ = events_.createTimer([this] {
        q3_.q3status.set("Ready");
        stimer_->setInterval(0);
        stimer_->setEnabled(false);
    });
}

void EventLog::logEvent(std::string_view message, bool serious) {
    std::string copy(message);
    logMessage(copy, serious);
}

void EventLog::toFile(std::string_view line) {
    if (run_.LogOpen) keep(std::string(line));
}

void EventLog::logMessage(std::string& message, bool serious) {
    std::string console = q3_.q3console.get();
    if (val(options_.q3buffsize.text()) < static_cast<double>(console.size())) console.clear();
    const double tick = clock_.tickCount();
    if (run_.ShowConsole.get()) message = elapsedText((tick - run_.LastTick) / 1000) + ": " + lower(message);
    run_.LastTick = tick;
    q3_.q3status.set(message);
    q3_.q3console.set(console + std::string(kCrLf) + message);
    const int level = options_.q3loglevel.index();
    if (run_.LogOpen && (level == kEverything || (level == kSeriousErrors && serious))) keep(message);
    if (run_.ShowConsole.get()) {
        stimer_->setInterval(kStatusMilliseconds);
        stimer_->setEnabled(true);
    }
    if (splash_.visible.get()) {
        splash_.splashmsg.set(message);
        const int extent = splash_.splashbar.get();
        splash_.splashbar.set((extent > kSplashExtent ? 0 : extent) + kSplashStep);
        events_.yield();
    }
}

std::vector<std::string> EventLog::oldLogs() const {
    std::vector<std::string> names;
    try {
        for (const auto& file : files_.listFolder(run_.AppDir).files)
            if (endsWithNoCase(file.name, kLogEnding)) names.push_back(file.name);
    } catch (const FileFailure&) {
        // Nor will a new one be made there: that is told.
    }
    return names;
}

void EventLog::keep(const std::string& line) {
    try {
        logStream_->writeLine(oneLine(line));  // a name from outside must not look like a line of its own
    } catch (const FileFailure& failure) {
        // A line is no reason to end anything; the first one that is lost is told where all lines are shown.
        if (std::exchange(dropped_, true)) return;
        q3_.q3console.set(q3_.q3console.get() + std::string(kCrLf) + failure.what());
    }
}

void EventLog::purge(const std::string& keeplogs) {
    logEvent("purging old logs");
    options_.q3keeplogs.setText(keeplogs);
    std::vector<std::string> names = oldLogs();
    std::sort(names.begin(), names.end());  // the stamp in front makes the oldest come first
    const double keep = std::max(0.0, val(options_.q3keeplogs.text()));
    for (std::size_t i = 0; i < names.size() && static_cast<double>(names.size() - i) > keep; ++i) {
        try {
            files_.deleteFile(run_.AppDir + names[i], true);
            logEvent("deleting old log: " + names[i]);
        } catch (const FileFailure&) {
            logEvent("problem deleting " + names[i]);
        }
    }
}

bool EventLog::purgeAndCreate(const std::string& keeplogs) {
    purge(keeplogs);
    logEvent("Creating Error Log...");
    const DateTime now = clock_.now();
    logPath_ = run_.AppDir + dateTimeStamp(now) + "-" + std::string(kLogEnding);
    try {
        logStream_ = files_.createText(logPath_);
    } catch (const FileFailure&) {
        return false;
    }
    logEvent("File opened OK");
    for (const std::string& line : {std::string("////////////////////////////////////////////////"),
                                    std::string("// GATEHOUSE ERROR LOG"), std::string("//"),
                                    std::string("// This file is created each time gatehouse is run."),
                                    std::string("// any non-fatal errors encountered will be listed here"),
                                    std::string("//"), "// Date:" + dateTimeText(now), std::string()})
        keep(line);
    run_.LogOpen = true;
    return true;
}

}  // namespace gatehouse
