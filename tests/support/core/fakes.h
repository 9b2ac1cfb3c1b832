#pragma once

#include "base/command_flags.h"
#include "base/log.h"
#include "base/run_state.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/datagrams.h"
#include "platform/resources.h"
#include "platform/archives.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/desktop_windows.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/machine.h"
#include "platform/pace.h"
#include "platform/pictures.h"
#include "platform/processes.h"
#include "platform/random.h"
#include "platform/services.h"
#include "platform/settings_store.h"
#include "platform/udp_socket.h"
#include "platform/viewers.h"
#include "startup/option_store.h"

#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace gatehouse::fake {

/// Files in memory, found without regard to case. The n-th operation that changes something can be made to fail.
class MemoryFiles : public Files {
public:
    /// Puts a file there, with its folders.
    void put(const std::string& path, const std::string& content);
    /// Content of a file; fails the test's expectation by returning "<missing>" when there is none.
    std::string content(const std::string& path) const;
    std::vector<std::string> paths() const;
    void addFolder(const std::string& path);

    int failAtChange = 0;              ///< counted down by each change; the one that reaches 0 fails
    std::set<std::string> denied;      ///< lower-cased paths that can't be opened, made or deleted
    std::vector<Drive> driveList{{"C:", DriveType::Fixed}};

    bool fileExists(const std::string& path) const override;
    bool folderExists(const std::string& path) const override;
    std::uint64_t fileSize(const std::string& path) const override;
    double fileAge(const std::string&) const override { return age; }
    double age = 0;  ///< of every file, in milliseconds
    std::unique_ptr<TextReader> openText(const std::string& path) override;
    std::unique_ptr<TextWriter> createText(const std::string& path) override;
    std::unique_ptr<TextWriter> replaceText(const std::string& path) override;
    std::unique_ptr<TextWriter> appendText(const std::string& path) override;
    void deleteFile(const std::string& path, bool force) override;
    void copyFile(const std::string& from, const std::string& to) override;
    void renameFile(const std::string& from, const std::string& to) override;
    void createFolder(const std::string& path) override;
    void deleteFolder(const std::string& path) override;
    FolderListing listFolder(const std::string& path) const override;
    FolderListing searchListing(const std::string& path) const override;
    std::vector<Drive> drives() const override { return driveList; }

    /// One change; throws when it is the one that is to fail.
    void countChange(const std::string& path);

private:
    struct Stored {
        std::string path;
        std::string content;
    };
    std::map<std::string, Stored> files_;
    std::map<std::string, std::string> folders_;
};

class MemorySettings : public SettingsStore {
public:
    std::optional<std::string> read(const std::string& key) const override;
    void write(const Values& written) override {
        if (full) throw RuntimeFailure("no room");
        for (const auto& [key, text] : written) values[key] = text;
    }
    void deleteSection() override { values.clear(); }
    std::map<std::string, std::string> values;
    bool unreadable = false;
    bool full = false;
};

/// A clock moved by hand.
class ManualClock : public Clock {
public:
    double tickCount() const override { return ticks; }
    DateTime now() const override { return time; }
    double ticks = 1000;
    DateTime time{2001, 2, 3, 14, 5, 6};
};

/// An event loop whose time is the manual clock's: a wait without a tick jumps to the next timer, another lets its tick
/// pass.
class ScriptedLoop : public EventLoop {
public:
    explicit ScriptedLoop(ManualClock& clock) : clock_(clock) {}
    void yield() override;
    void waitUntil(const std::function<bool()>& condition, int tickMilliseconds) override;
    void endWaits() override { ended = true; }
    std::unique_ptr<Timer> createTimer(std::function<void()> onTick) override;
    /// Runs inside the next yields, one each.
    std::deque<std::function<void()>> pending;
    /// Lets time pass; timers that fall due run in order.
    void advance(int milliseconds);
    bool ended = false;
    int yields = 0;

private:
    friend class ScriptedTimer;
    int untilNextTimer() const;
    ManualClock& clock_;
    std::vector<class ScriptedTimer*> timers_;
};

/// Boxes and file dialogs answered by a script. An unanswered one throws, which fails the test.
class ScriptedDialogs : public Dialogs {
public:
    void answer(const std::string& title, Answer answer) { answers_.push_back({title, answer}); }
    void choose(std::optional<std::string> path) { choices_.push_back(std::move(path)); }
    bool canAsk() const override { return watched; }
    Answer show(const MessageBox& box) override;
    void showList(const ListBox& list) override { lists.push_back(list); }
    std::optional<std::string> openFile(const FileDialog& dialog) override;
    std::optional<std::string> saveFile(const FileDialog& dialog) override;
    std::optional<std::string> chooseFolder(const std::string& title, const std::string& startFolder) override;
    /// Boxes shown so far.
    std::vector<MessageBox> shown;
    std::vector<ListBox> lists;
    std::vector<FileDialog> fileDialogs;
    bool watched = true;
    /// Called with each box before it is answered.
    std::function<void(const MessageBox&)> onShow;

private:
    std::deque<std::pair<std::string, Answer>> answers_;
    std::deque<std::optional<std::string>> choices_;
};

class MemoryClipboard : public Clipboard {
public:
    bool hasText() const override { return value.has_value(); }
    std::string text() const override { return value.value_or(""); }
    void setText(const std::string& text) override { value = text; }
    std::optional<std::string> value;
};

class FakeWindows : public DesktopWindows {
public:
    std::vector<DesktopWindow> list() const override { return windows; }
    void close(std::uint64_t id) override {
        closed.push_back(id);
        if (onClose) onClose();
    }
    bool terminate(std::uint64_t id) override {
        terminated.push_back(id);
        return terminates;
    }
    std::function<void()> onClose;
    std::vector<std::uint64_t> terminated;
    bool terminates = false;
    std::vector<DesktopWindow> windows;
    std::vector<std::uint64_t> closed;
};

class FakeProcesses : public Processes {
public:
    std::optional<std::string> fileArgument() const override { return fileGiven; }
    std::string commandLine() const override { return line; }
    std::string environment(int position) const override;
    int osPlatformId() const override { return platformId; }
    void startBatch(const std::string& interpreter, const std::string& batchFile) override;
    void start(const std::string& programLine, const std::string& folder) override;
    bool gameRuns() const override { return running; }
    bool running = false;
    std::function<void()> onStart;
    std::string line;
    std::vector<std::string> variables;
    int platformId = 2;
    bool failToStart = false;
    std::vector<std::string> started;  ///< `<interpreter> /c "<batch>"`, or `<folder>|<program line>`
    std::optional<std::string> fileGiven;
};

class FakeMachine : public Machine {
public:
    MachineInfo info() const override { return {"A processor", "", "A kernel"}; }
};

/// Archives in memory: what is taken out of them goes to the files.
class FakeArchives : public Archives {
public:
    struct Entry {
        std::string name;
        std::string bytes = {};
        std::string fault = {};  ///< why it can't be had
    };
    explicit FakeArchives(MemoryFiles& files) : files_(files) {}
    /// Puts an archive there.
    void put(const std::string& path, std::vector<Entry> entries);
    std::unique_ptr<Archive> open(const std::string& path) override;
    EntryFault store(const std::string& bytes, const std::string& entry, const std::string& folder) override;
    int opened = 0;

private:
    MemoryFiles& files_;
    std::map<std::string, std::vector<Entry>> archives_;  ///< by lower-cased path
};

/// A picture file's content is its width; a BMP's as well.
class FakePictures : public Pictures {
public:
    explicit FakePictures(MemoryFiles& files) : files_(files) {}
    Picture open(const std::string& path) override;
    std::string bmp(Picture picture) override { return std::to_string(picture.width); }
    std::string png(const std::string& svg, int width) override { return std::to_string(width) + svg; }
    std::vector<std::string> shown;

private:
    MemoryFiles& files_;
};

class FakeSocket : public UdpSocket {
public:
    void setRemoteHost(const std::string& name) override { host = name; }
    void setRemotePort(std::int32_t number) override { port = number; }
    void lookUp(std::function<void()> onDone) override {
        if (!slowNames) return onDone();
        named = std::move(onDone);
    }
    void sendData(const std::string& bytes) override {
        if (failingSends > 0 && failingSends-- > 0) throw RuntimeFailure("unreachable");
        sent.push_back(host + "|" + std::to_string(port) + "|" + bytes);
        ports += !open;
        open = true;
        if (onSend) onSend();
    }
    std::string getData() override {
        if (failToRead) throw RuntimeFailure("gone");
        return reply;
    }
    void close() override { open = false; }
    std::string remoteHostIp() const override { return host; }
    std::int32_t remotePort() const override { return port; }
    /// A datagram arrives, if anybody listens.
    void deliver(std::string bytes) {
        if (!open) return;
        reply = std::move(bytes);
        onDataArrival(static_cast<int>(reply.size()));
    }
    std::string host, reply;
    std::int32_t port = 0;
    std::vector<std::string> sent;  ///< host, port and bytes
    std::function<void()> onSend;
    bool slowNames = false;  ///< `named` is to be called by the test
    std::function<void()> named;
    int ports = 0;  ///< local ports taken so far
    int failingSends = 0;
    bool failToRead = false;
    bool open = false;
};

/// Keeps what it sends, and to whom.
class FakeDatagrams : public Datagrams {
public:
    bool send(const Endpoint& to, std::string_view bytes) override {
        sent.push_back(to);
        texts.emplace_back(bytes);
        return true;
    }
    void close() override { ++closed; }
    std::vector<Endpoint> sent;
    std::vector<std::string> texts;
    int closed = 0;
};

/// Keeps the sockets that it makes, in their order; they belong to whoever wanted them.
class FakeNetwork : public Network {
public:
    std::unique_ptr<Datagrams> makeSocket() override {
        auto made = std::make_unique<FakeDatagrams>();
        sockets.push_back(made.get());
        return made;
    }
    std::vector<std::string> broadcastAddresses() const override { return {"10.1.2.255"}; }
    std::vector<FakeDatagrams*> sockets;
};

/// Answers names when the test says so, and addresses at once.
class FakeHostNames : public HostNames {
public:
    void lookUp(const std::string& name, std::function<void(std::optional<std::string>)> onDone) override {
        asked.push_back(name);
        if (name.find_first_not_of("0123456789.") == std::string::npos) return onDone(name);
        later.push_back(std::move(onDone));
    }
    std::vector<std::string> asked;
    std::vector<std::function<void(std::optional<std::string>)>> later;
};

class FakeViewers : public Viewers {
public:
    void viewText(const std::string& path) override {
        if (failToStart) throw RuntimeFailure("Can't show " + path);
        viewed.push_back(path);
    }
    bool failToStart = false;
    std::vector<std::string> viewed;
};

/// The texts as they lie in the source tree, since the core has no resources of its own.
class SourceTexts : public Resources {
public:
    std::string text(std::string_view name) const override;
};

/// Keeps all lines; a serious one has a "!" in front, one for the file alone a "=".
class RecordingLog : public Log {
public:
    void logEvent(std::string_view message, bool serious) override {
        lines.push_back((serious ? "!" : "") + std::string(message));
    }
    void toFile(std::string_view line) override { lines.push_back("=" + std::string(line)); }
    bool has(const std::string& line) const;
    std::vector<std::string> lines;
};

/// All fakes at once.
struct World {
    MemoryFiles files;
    MemorySettings settings;
    ManualClock clock;
    ScriptedLoop events{clock};
    ScriptedDialogs dialogs;
    MemoryClipboard clipboard;
    FakeWindows windows;
    FakeProcesses processes;
    FakeMachine machine;
    FakeArchives archives{files};
    FakePictures pictures{files};
    FakeSocket socket;
    FakeNetwork network;
    FakeHostNames hostNames;
    FakeViewers viewers;
    Random random;
    SourceTexts resources;
    RecordingLog log;
    RunState run;
    CommandFlags flags;
    OptionStore store{settings, log, dialogs};
    Pace pace{events, clock};
    Ground ground{files, dialogs, events, log, store, run, flags, pace};
    Services services{files,   settings, events,    clock,     dialogs, clipboard, windows,  processes, machine,
                      archives, pictures, socket, network, hostNames, viewers, random,   resources};
};

/// Lines joined as the program writes them, each ended by CR LF.
std::string crlf(const std::vector<std::string>& lines);

}  // namespace gatehouse::fake
