#include "benchmark/benchmark_run.h"

#include "base/command_flags.h"
#include "base/game_folder.h"
#include "base/log.h"
#include "base/numbers.h"
#include "base/run_state.h"
#include "base/text.h"
#include "platform/dialogs.h"
#include "platform/file_tools.h"
#include "platform/machine.h"
#include "platform/processes.h"
#include "platform/viewers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gatehouse {

namespace {

constexpr int kMinute = 60'000;  // milliseconds, as all below
constexpr int kTick = 50;
constexpr double kStatusPace = 500;  // each change is painted, beside a game that is measured
constexpr double kProgressPace = 1000;
/// A game that has written its figures is given this long to leave the machine to the next one.
constexpr double kQuietPatience = 5000;
constexpr std::string_view kDataFile = "bdata.txt";
constexpr std::string_view kGame = "quake 3";

/// Takes what is written into a text.
class CollectedText : public TextWriter {
public:
    explicit CollectedText(std::string& text) : text_(text) {}
    void writeLine(const std::string& line) override { text_.append(line).append(kCrLf); }
    void write(const std::string& bytes) override { text_ += bytes; }
    void close() override {}

private:
    std::string& text_;
};

/// Seconds with one decimal place.
std::string tenths(double seconds) {
    const long whole = std::lround(std::fabs(seconds) * 10);
    return std::string(seconds < 0 && whole > 0 ? "-" : "") + std::to_string(whole / 10) + "." +
           std::to_string(whole % 10);
}

std::string aboutTime(double milliseconds) {
    const long seconds = std::lround(milliseconds / 1000);
    return seconds < 90 ? std::to_string(seconds) + " s" : std::to_string((seconds + 30) / 60) + " min";
}

/// A path as a native engine takes it: without the drive, and without a separator at its end.
std::string nativeForm(std::string path) {
    if (path.size() > 1 && path[1] == ':') path.erase(0, 2);
    std::replace(path.begin(), path.end(), '\\', '/');
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

/// The value of a variable of the environment, empty if it isn't there.
std::string environmentValue(const Processes& processes, const std::string& name) {
    for (int position = 1;; ++position) {
        const std::string entry = processes.environment(position);
        if (entry.empty()) return {};
        if (entry.starts_with(name + "=")) return entry.substr(name.size() + 1);
    }
}

}  // namespace

BenchmarkRun::BenchmarkRun(const Parts& parts)
    : stale(parts.events),
      keeper(parts, parts.services.clock),
      with_(parts),
      btimer_(parts.events.createTimer([this] { btimer_Timer(); })) {}

void BenchmarkRun::run() {
    if (with_.run.benchmarking.get()) return;
    configs_ = BenchmarkSetup::chosen(with_.setup.configlist);
    demos_ = BenchmarkSetup::chosen(with_.setup.demolist);
    // A run without a choice would leave nothing but an empty file of results in place of the last one.
    if (configs_.empty() || demos_.empty())
        throw RuntimeFailure("There is nothing to run: no documents and demos are selected on the Benchmark tab");
    begin();
    try {
        if (!runAll()) return abort();
        results_->close();
        keeper.end(RunEnd::Finished);
    } catch (const RuntimeFailure& failure) {
        keeper.end(RunEnd::Failed, failure.what());
        giveBack();
        throw;
    }
    finish();
}

void BenchmarkRun::begin() {
    with_.run.RunErrors = false;
    gameDir_ = with_.run.GameDir;
    const std::string kept = keepUnsaved();
    with_.run.benchmarking.set(true);
    tabWanted.emit();
    try {
        lockControls();
        with_.log.logEvent("");
        with_.log.logEvent("Benchmark started.");
        with_.log.logEvent("Creating results file");
        results_ = with_.files.createText(baseFile("bresults.txt"));
        good_ = with_.run.CurrentConfigPath;
        const int count = strictInt16(with_.democount);
        planned_ = static_cast<int>(configs_.size() * demos_.size()) * std::max(count, 0);
        done_ = 0;
        spent_ = 0;
        RunRecord head;
        head.version = with_.run.VersionString;
        head.machine = with_.services.machine.info();
        head.game = gameDir_ + gameProgramOf(with_.q3FilePath.text());
        head.commandLine = programLine();
        head.wanted = count;
        head.staleMinutes = with_.q3bwait.text();
        head.unsavedKept = kept;
        head.demos = demos_;
        keeper.begin(std::move(head));
    } catch (const RuntimeFailure&) {
        giveBack();
        throw;
    }
}

std::string BenchmarkRun::keepUnsaved() {
    const auto text = with_.documents.unsavedText();
    if (!text) return {};
    const std::string path = freePath(with_.files, with_.run.AppDir, "before-benchmark", ".ghc");
    replaceFile(with_.files, path, *text);
    with_.log.logEvent("Unsaved changes were kept in " + path, true);
    return path;
}

bool BenchmarkRun::runAll() {
    for (std::size_t i = 0; i < configs_.size(); ++i)
        if (!runConfig(configs_[i], static_cast<int>(i))) return false;
    return true;
}

bool BenchmarkRun::runConfig(const std::string& config, int index) {
    with_.log.logEvent("");
    loadConfig(trim(with_.ghcdir.text()) + trim(config));
    for (std::size_t i = 0; i < demos_.size(); ++i)
        if (!runPair({config, demos_[i], index, static_cast<int>(i)})) return false;
    with_.log.logEvent("Finished with config " + config);
    with_.log.logEvent("");
    return true;
}

void BenchmarkRun::loadConfig(const std::string& path) {
    with_.run.CurrentConfigPath = path;
    with_.run.configFromBenchmark = true;
    std::string reason = "The document " + path + " can't be opened";
    try {
        if (with_.documents.loadConfig(path)) {
            good_ = path;
            return;
        }
    } catch (const RuntimeFailure& failure) {
        reason = failure.what();
    }
    // Half of a document must not stand under its name: the one before comes back.
    with_.run.CurrentConfigPath = good_;
    with_.documents.recover(good_);
    throw RuntimeFailure(reason);
}

bool BenchmarkRun::runPair(const Pair& pair) {
    with_.log.logEvent("Launching " + pair.config + "/" + pair.demo);
    const std::string text = writeGameConfig(pair.demo);
    if (pair.demoIndex == 0) keeper.addConfiguration(pair.config, text);
    double sum = 0;
    std::string row = pair.config + "," + pair.demo;
    const int n = strictInt16(with_.democount);
    for (int i = 1; i <= n; ++i)
        if (!iterate(pair, i, row, sum)) return false;
    with_.log.logEvent("Finished with demo " + pair.demo);
    results_->writeLine(row + "," + decimalText(sum / strictDouble(with_.democount.text())));
    return true;
}

std::string BenchmarkRun::writeGameConfig(const std::string& demo) {
    std::string text;
    with_.gameConfig.open(std::make_unique<CollectedText>(text));
    with_.gameConfig.writeLine("");
    with_.gameConfig.WriteBenchmarkVars();
    with_.gameConfig.close();
    std::string whole = text;
    CollectedText file(whole);
    for (const std::string& line :
         {std::string(), std::string("set nextdemo \"condump ") + std::string(kDataFile) + "; quit\"",
          std::string("timedemo 1"), "demo " + trim(demo)})
        file.writeLine(line);
    replaceFile(with_.files, baseFile("gatehouse.cfg"), whole);
    return text;
}

bool BenchmarkRun::iterate(const Pair& pair, int& i, std::string& row, double& sum) {
    Iteration iteration;
    iteration.configuration = pair.configIndex;
    iteration.demo = pair.demoIndex;
    iteration.number = i;
    iteration.at = keeper.now();
    doing_ = pair.config + ", " + pair.demo + ": iteration " + std::to_string(i) + " of " + with_.democount.text();
    deleteOldData();
    start_ = with_.services.clock.tickCount();
    with_.log.logEvent("->Waiting for Quake3");
    lockControls();
    startTimer();
    startGame();
    waitForResults(pair, i);
    switch (bstatus_) {
        case State::Stale:
            iteration.outcome = Outcome::Stale;
            break;
        case State::Retry:
            iteration.outcome = Outcome::Retried;
            --i;
            break;
        case State::Stop:
            iteration.outcome = Outcome::Stopped;
            keeper.add(iteration);
            return false;
        case State::Fresh:
            iteration.value = ParseBenchData(iteration);
            break;
    }
    keeper.add(iteration);
    row += "," + decimalText(iteration.value);
    sum += iteration.value;
    with_.log.logEvent("->Iteration " + std::to_string(i) + " of " + with_.democount.text() + " completed.");
    done_ += iteration.outcome != Outcome::Retried;
    spent_ += with_.services.clock.tickCount() - start_;
    return bstatus_ != State::Fresh || waitForQuiet();
}

bool BenchmarkRun::waitForQuiet() {
    const double until = with_.services.clock.tickCount() + kQuietPatience;
    with_.events.waitUntil(
        [&] {
            return bstatus_ == State::Stop || !with_.services.processes.gameRuns() ||
                   with_.services.clock.tickCount() >= until;
        },
        kTick);
    return bstatus_ != State::Stop;
}

void BenchmarkRun::deleteOldData() {
    if (with_.files.fileExists(baseFile(std::string(kDataFile))))
        with_.files.deleteFile(gameDir_ + "\\baseq3\\" + std::string(kDataFile), true);  // one backslash more is meant
}

void BenchmarkRun::lockControls() {
    with_.setup.choosing.set(false);
    with_.democount.enabled.set(false);
    with_.flags.setMovable(false);
    with_.flags.mtoolsresults.set(false);
    with_.flags.mfilerun.set(false);
    with_.flags.btbar[1].set(false);
    with_.flags.btbar[2].set(true);
    with_.flags.btbar[3].set(true);
}

void BenchmarkRun::startTimer() {
    bstatus_ = State::Fresh;
    WaitMinutes_ = 0;
    btimer_->setEnabled(false);
    btimer_->setInterval(kMinute);
    btimer_->setEnabled(true);
}

void BenchmarkRun::btimer_Timer() {
    WaitMinutes_ = addInt16(WaitMinutes_, 1);
    if (strictDouble(with_.q3bwait.text()) <= WaitMinutes_) bstatus_ = State::Stale;
}

std::string BenchmarkRun::programLine() const {
    return gameProgramOf(with_.q3FilePath.text()) + " " + trim(with_.extracmdline.text()) + " +exec gatehouse.cfg";
}

void BenchmarkRun::startGame() { with_.services.processes.start(programLine(), gameDir_); }

void BenchmarkRun::waitForResults(const Pair& pair, int i) {
    DataWatch data(with_.files, with_.services.clock, baseFile(std::string(kDataFile)));
    shownAt_ = toldAt_ = -kMinute;
    with_.events.waitUntil(
        [&] {
            if (data.there() || bstatus_ != State::Fresh) return true;
            showRemaining();
            return false;
        },
        kTick);
    if (bstatus_ == State::Stale) handleStale(pair, i);
}

void BenchmarkRun::showRemaining() {
    const double now = with_.services.clock.tickCount();
    if (now - shownAt_ < kStatusPace) return;
    shownAt_ = now;
    const double remaining = strictDouble(with_.q3bwait.text()) * 60 - (now - start_) / 1000;
    with_.q3status.set("Waiting for Quake3 (" + tenths(remaining) + " seconds until stale)");
    if (now - toldAt_ < kProgressPace) return;
    toldAt_ = now;
    progress.set(progressText(remaining));
}

std::string BenchmarkRun::progressText(double remaining) const {
    std::string text = doing_ + ". Stale in " + std::to_string(std::lround(std::max(remaining, 0.0))) + " s.";
    if (done_ > 0) {
        const double each = spent_ / done_;
        const double left = each * (planned_ - done_) - (with_.services.clock.tickCount() - start_);
        text += " About " + aboutTime(std::max(left, 0.0)) + " left.";
    }
    return text;
}

void BenchmarkRun::handleStale(const Pair& pair, int i) {
    btimer_->setInterval(0);
    btimer_->setEnabled(false);
    Log& log = with_.log;
    log.logEvent("->" + pair.demo + "," + pair.config + " iteration " + std::to_string(i) + ": Stale.", true);
    const auto stopWanted = [this] { return bstatus_ == State::Stop; };
    if (with_.windows.findGame(std::string(kGame)) != 0) {
        log.logEvent("->Killing the Quake 3 process.", true);
        const bool killed = with_.windows.KillWindow(std::string(kGame), stopWanted);
        if (stopWanted()) return;
        if (killed) {
            log.logEvent("->Process was killed ok.");
        } else {
            log.logEvent("->Cannot kill process.", true);
            log.logEvent("->Trying to continue anyway.");
        }
    }
    log.logEvent("->Gone stale.");
    const std::string seconds = decimalText(strictDouble(with_.q3bwait.text()) * 60);
    const bool retry = stale.ask("Quake 3 has not produced any results after " + seconds +
                                     " seconds. This iteration will be aborted. Choose the action you wish to take. "
                                     "The default action will be initiated in 15 seconds." +
                                     elsewhere(),
                                 with_.q3staleaction.index() == 0);
    if (stopWanted()) return;
    bstatus_ = retry ? State::Retry : State::Stale;
    log.logEvent(retry ? "->Trying same iteration again." : "->Forcing next iteration.", true);
}

/// Newer engines write into a folder of their own: a line that says so, if the game has just done that.
std::string BenchmarkRun::elsewhere() const {
    const std::string home = environmentValue(with_.services.processes, "HOME");
    if (home.empty()) return {};
    for (const char* folder : {"/.q3a", "/.local/share/ioquake3"}) {
        const std::string path = home + folder + "/baseq3/" + std::string(kDataFile);
        if (!with_.files.fileExists(path)) continue;
        if (with_.files.fileAge(path) > with_.services.clock.tickCount() - start_) continue;
        std::string hint = "The game has written its results to " + path +
                           ". Add to \"Extra Command Line\": " + "+set fs_homepath " + quoted(nativeForm(gameDir_));
        with_.log.logEvent(hint, true);
        return "\r\n\r\n" + hint;
    }
    return {};
}

double BenchmarkRun::ParseBenchData(Iteration& iteration) {
    const std::string path = baseFile(std::string(kDataFile));
    const auto timing = readTiming(with_.files, path);
    if (!timing) {
        with_.log.toFile("BENCH: Cannot open " + path);
        iteration.outcome = Outcome::Unread;
        return 0;
    }
    iteration.frames = timing->frames;
    iteration.seconds = timing->seconds;
    return timing->value;
}

void BenchmarkRun::finish() {
    progress.set("");
    if (with_.run.RunErrors) {
        with_.log.logEvent("Benchmarks Finished. There were errors.");
        askToView(
            "There were errors encountered\r\nwhile running this benchmark.\r\n\r\n"
            "Do you want to view the error log now?",
            with_.run.AppDir + "errorlog.txt", false);
    } else {
        with_.log.logEvent("Benchmarks Finished OK.");
    }
    const bool wanted = askToView("The benchmarks have completed.\r\n\r\nDo you want to view the results now?",
                                  baseFile("bresults.txt"), true);
    with_.log.logEvent("Ready.");
    giveBack();
    if (wanted) resultsWanted.emit();
}

bool BenchmarkRun::askToView(const std::string& text, const std::string& path, bool withResults) {
    MessageBox box{.title = "Benchmarks Complete", .text = text, .buttons = Buttons::YesNo, .icon = Icon::Stop};
    if (withResults) box.other = "&Compare...";
    const Answer answer = with_.dialogs.show(box);
    if (answer == Answer::Yes) {
        try {
            with_.services.viewers.viewText(path);
        } catch (const RuntimeFailure& failure) {
            with_.log.logEvent(failure.what(), true);
            with_.dialogs.show({.title = "Benchmarks Complete", .text = failure.what(), .icon = Icon::Stop});
        }
    }
    return answer == Answer::Other;
}

void BenchmarkRun::abort() {
    with_.log.logEvent("->stop flag set. aborting benchmarks");
    keeper.end(RunEnd::Stopped);
    results_.reset();
    progress.set("");
    with_.run.benchmarking.set(false);
    with_.flags.mtoolsresults.set(true);
    stopped.set(true);
    with_.setup.checkRun();
}

void BenchmarkRun::giveBack() {
    results_.reset();
    btimer_->setInterval(0);
    btimer_->setEnabled(false);
    with_.run.RunErrors = false;
    with_.setup.choosing.set(true);
    with_.democount.enabled.set(true);
    with_.flags.setMovable(true);
    with_.flags.mtoolsresults.set(true);
    with_.flags.SetRunEnabled(true);
    progress.set("");
    stopped.set(false);
    with_.run.benchmarking.set(false);
    with_.setup.checkRun();
}

void BenchmarkRun::pause_Click() {
    with_.log.logEvent("->Benchmark paused by user");
    btimer_->setEnabled(false);
    with_.dialogs.show({.title = "Benchmarks",
                        .text = "Benchmarks paused. Click OK to continue.",
                        .icon = Icon::Information,
                        .safeAnswer = Answer::Ok});
    btimer_->setEnabled(true);
    with_.log.logEvent("->Benchmark resumed by user");
}

void BenchmarkRun::stop_Click() {
    btimer_->setEnabled(false);
    with_.log.logEvent("->stop_click event. setting stop flag");
    bstatus_ = State::Stop;
    with_.dialogs.show({.title = "Stop", .text = "Benchmarks stopped.", .safeAnswer = Answer::Ok});
    with_.setup.choosing.set(true);
    with_.democount.enabled.set(true);
    with_.flags.btbar[1].set(true);
    with_.flags.btbar[2].set(false);
    with_.flags.btbar[3].set(false);
}

void BenchmarkRun::restoreDesign() {
    btimer_->setEnabled(false);
    stale.waitwindow.set(false);
    progress.set("");
    stopped.set(false);
    with_.run.benchmarking.set(false);
}

}  // namespace gatehouse
