#include "support/core/fakes.h"

#include "base/numbers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <source_location>
#include <stdexcept>

namespace gatehouse::fake {

namespace {

/// The one form of a path: backslashes, one at a time, none at the end.
std::string plain(const std::string& path) {
    std::string result;
    for (char c : path) {
        if (c == '/') c = '\\';
        if (c == '\\' && result.ends_with('\\')) continue;
        result += c;
    }
    if (result.ends_with('\\')) result.pop_back();
    return result;
}

std::string idOf(const std::string& path) { return lower(plain(path)); }
std::string parentOf(const std::string& path) {
    const auto at = path.find_last_of('\\');
    return at == std::string::npos ? std::string() : path.substr(0, at);
}

class MemoryReader : public TextReader {
public:
    explicit MemoryReader(std::string text) : text_(std::move(text)) {}
    bool readLine(std::string& line) override {
        if (at_ >= text_.size()) return false;
        const auto end = text_.find('\n', at_);
        line = text_.substr(at_, end == std::string::npos ? end : end - at_);
        at_ = end == std::string::npos ? text_.size() : end + 1;
        if (line.ends_with('\r')) line.pop_back();
        return true;
    }
    std::string readBytes(std::size_t count) override {
        const std::string bytes = text_.substr(std::min(at_, text_.size()), count);
        at_ += bytes.size();
        return bytes;
    }

private:
    std::string text_;
    std::size_t at_ = 0;
};

class MemoryWriter : public TextWriter {
public:
    MemoryWriter(MemoryFiles& files, std::string& target, std::string path)
        : files_(files), target_(target), path_(std::move(path)) {}
    void writeLine(const std::string& line) override { write(line + "\r\n"); }
    void write(const std::string& bytes) override {
        files_.countChange(path_);
        target_ += bytes;
    }
    void close() override {}

private:
    MemoryFiles& files_;
    std::string& target_;
    std::string path_;
};

class MemoryReplacer : public TextWriter {
public:
    MemoryReplacer(MemoryFiles& files, std::string path) : files_(files), path_(std::move(path)) {}
    void writeLine(const std::string& line) override { write(line + "\r\n"); }
    void write(const std::string& bytes) override {
        files_.countChange(path_);
        text_ += bytes;
    }
    void close() override {
        files_.countChange(path_);
        files_.put(path_, text_);
    }

private:
    MemoryFiles& files_;
    std::string path_;
    std::string text_;
};

}  // namespace

void MemoryFiles::countChange(const std::string& path) {
    if (failAtChange > 0 && --failAtChange == 0) throw FileFailure("No space left: " + path);
}

void MemoryFiles::addFolder(const std::string& path) {
    for (std::string folder = plain(path); !folder.empty(); folder = parentOf(folder))
        folders_.emplace(lower(folder), folder);
}

void MemoryFiles::put(const std::string& path, const std::string& content) {
    addFolder(parentOf(plain(path)));
    files_[idOf(path)] = {plain(path), content};
}

std::string MemoryFiles::content(const std::string& path) const {
    const auto it = files_.find(idOf(path));
    return it == files_.end() ? "<missing>" : it->second.content;
}

std::vector<std::string> MemoryFiles::paths() const {
    std::vector<std::string> result;
    for (const auto& [id, stored] : files_) result.push_back(stored.path);
    return result;
}

bool MemoryFiles::fileExists(const std::string& path) const { return files_.contains(idOf(path)); }
bool MemoryFiles::folderExists(const std::string& path) const { return folders_.contains(idOf(path)); }

std::uint64_t MemoryFiles::fileSize(const std::string& path) const {
    const auto it = files_.find(idOf(path));
    if (it == files_.end()) throw FileFailure("File not found: " + path);
    return it->second.content.size();
}

std::unique_ptr<TextReader> MemoryFiles::openText(const std::string& path) {
    const auto it = files_.find(idOf(path));
    if (it == files_.end() || denied.contains(idOf(path))) throw FileFailure("File not found: " + path);
    return std::make_unique<MemoryReader>(it->second.content);
}

std::unique_ptr<TextWriter> MemoryFiles::createText(const std::string& path) {
    if (denied.contains(idOf(path))) throw FileFailure("Permission denied: " + path);
    if (!folderExists(parentOf(plain(path)))) throw FileFailure("Path not found: " + path);
    countChange(path);
    auto& stored = files_[idOf(path)];
    if (stored.path.empty()) stored.path = plain(path);
    stored.content.clear();
    return std::make_unique<MemoryWriter>(*this, stored.content, path);
}

std::unique_ptr<TextWriter> MemoryFiles::replaceText(const std::string& path) {
    if (denied.contains(idOf(path))) throw FileFailure("Permission denied: " + path);
    if (!folderExists(parentOf(plain(path)))) throw FileFailure("Path not found: " + path);
    countChange(path);
    return std::make_unique<MemoryReplacer>(*this, path);
}

std::unique_ptr<TextWriter> MemoryFiles::appendText(const std::string& path) {
    if (!fileExists(path)) return createText(path);
    if (denied.contains(idOf(path))) throw FileFailure("Permission denied: " + path);
    return std::make_unique<MemoryWriter>(*this, files_[idOf(path)].content, path);
}

void MemoryFiles::deleteFile(const std::string& path, bool) {
    if (denied.contains(idOf(path))) throw FileFailure("Permission denied: " + path);
    countChange(path);
    if (files_.erase(idOf(path)) == 0) throw FileFailure("File not found: " + path);
}

void MemoryFiles::copyFile(const std::string& from, const std::string& to) {
    const std::string bytes = openText(from)->readBytes(static_cast<std::size_t>(fileSize(from)));
    const auto copy = replaceText(to);
    copy->write(bytes);
    copy->close();
}

void MemoryFiles::renameFile(const std::string& from, const std::string& to) {
    if (!fileExists(from)) throw FileFailure("File not found: " + from);
    countChange(from);
    put(to, content(from));
    files_.erase(idOf(from));
}

void MemoryFiles::createFolder(const std::string& path) {
    countChange(path);
    addFolder(path);
}

void MemoryFiles::deleteFolder(const std::string& path) {
    const std::string beginning = idOf(path) + "\\";
    std::erase_if(files_, [&](const auto& entry) { return entry.first.starts_with(beginning); });
    std::erase_if(folders_, [&](const auto& entry) { return (entry.first + "\\").starts_with(beginning); });
}

FolderListing MemoryFiles::listFolder(const std::string& path) const {
    if (!folderExists(path) || denied.contains(idOf(path))) throw FileFailure("Path not found: " + path);
    FolderListing listing;
    for (const auto& [id, stored] : files_)
        if (parentOf(id) == idOf(path))
            listing.files.push_back({bareName(stored.path), stored.path, bareName(stored.path)});
    for (const auto& [id, folder] : folders_)
        if (!parentOf(id).empty() && parentOf(id) == idOf(path))
            listing.folders.push_back({bareName(folder), folder, bareName(folder)});
    return listing;
}

FolderListing MemoryFiles::searchListing(const std::string& path) const {
    FolderListing listing = listFolder(path);
    std::erase_if(listing.files, [](const FolderEntry& file) { return !endsWithNoCase(file.name, ".exe"); });
    return listing;
}

std::optional<std::string> MemorySettings::read(const std::string& key) const {
    if (unreadable) throw RuntimeFailure("The options can't be read");
    const auto it = values.find(key);
    if (it == values.end()) return std::nullopt;
    return it->second;
}

class ScriptedTimer : public Timer {
public:
    ScriptedTimer(ScriptedLoop& loop, std::function<void()> onTick) : loop_(loop), onTick_(std::move(onTick)) {
        loop_.timers_.push_back(this);
    }
    ~ScriptedTimer() override { std::erase(loop_.timers_, this); }
    void setInterval(int milliseconds) override {
        interval_ = milliseconds;
        due_ = loop_.clock_.ticks + interval_;
    }
    void setEnabled(bool enabled) override {
        if (enabled && !enabled_) due_ = loop_.clock_.ticks + interval_;
        enabled_ = enabled;
    }
    bool enabled() const override { return enabled_; }
    bool running() const { return enabled_ && interval_ > 0; }
    double due() const { return due_; }
    void tick() {
        due_ += interval_;
        onTick_();
    }

private:
    ScriptedLoop& loop_;
    std::function<void()> onTick_;
    int interval_ = 0;
    bool enabled_ = false;
    double due_ = 0;
};

std::unique_ptr<Timer> ScriptedLoop::createTimer(std::function<void()> onTick) {
    return std::make_unique<ScriptedTimer>(*this, std::move(onTick));
}

void ScriptedLoop::advance(int milliseconds) {
    const double end = clock_.ticks + milliseconds;
    for (;;) {
        ScriptedTimer* next = nullptr;
        for (auto* timer : timers_)
            if (timer->running() && timer->due() <= end && (!next || timer->due() < next->due())) next = timer;
        if (!next) break;
        clock_.ticks = std::max(clock_.ticks, next->due());
        next->tick();
    }
    clock_.ticks = end;
}

void ScriptedLoop::yield() {
    if (ended) throw Shutdown{};
    ++yields;
    if (pending.empty()) return;
    auto event = std::move(pending.front());
    pending.pop_front();
    event();
}

void ScriptedLoop::waitUntil(const std::function<bool()>& condition, int tickMilliseconds) {
    for (int turns = 0; !condition(); ++turns) {
        if (turns > 100000) throw std::logic_error("a wait that never ends");
        const bool idle = pending.empty();
        yield();
        advance(tickMilliseconds == 0 && idle ? untilNextTimer() : tickMilliseconds);
    }
}

int ScriptedLoop::untilNextTimer() const {
    double next = clock_.ticks;
    for (const auto* timer : timers_)
        if (timer->running()) next = next == clock_.ticks ? timer->due() : std::min(next, timer->due());
    return static_cast<int>(next - clock_.ticks);
}

Answer ScriptedDialogs::show(const MessageBox& box) {
    shown.push_back(box);
    if (onShow) onShow(box);
    if (answers_.empty()) throw std::logic_error("unanswered box: " + box.title + ": " + box.text);
    const auto [title, answer] = answers_.front();
    answers_.pop_front();
    if (title != box.title) throw std::logic_error("expected the box " + title + ", got " + box.title + ": " + box.text);
    return answer;
}

std::optional<std::string> ScriptedDialogs::openFile(const FileDialog& dialog) {
    fileDialogs.push_back(dialog);
    if (choices_.empty()) throw std::logic_error("unanswered file dialog: " + dialog.filter);
    auto path = choices_.front();
    choices_.pop_front();
    return path;
}

std::optional<std::string> ScriptedDialogs::saveFile(const FileDialog& dialog) { return openFile(dialog); }

std::optional<std::string> ScriptedDialogs::chooseFolder(const std::string& title, const std::string& startFolder) {
    return openFile({.title = title, .filter = {}, .startFolder = startFolder, .fileName = {}});
}

std::string FakeProcesses::environment(int position) const {
    const auto index = static_cast<std::size_t>(position - 1);
    return index < variables.size() ? variables[index] : std::string();
}

void FakeProcesses::startBatch(const std::string& interpreter, const std::string& batchFile) {
    if (failToStart) throw RuntimeFailure("File not found: quake3.exe");
    started.push_back(interpreter + " /c " + gatehouse::quoted(batchFile));
}

void FakeProcesses::start(const std::string& programLine, const std::string& folder) {
    if (failToStart) throw RuntimeFailure("File not found: quake3.exe");
    started.push_back(folder + "|" + programLine);
    if (onStart) onStart();
}

namespace {

class MemoryArchive : public Archive {
public:
    MemoryArchive(MemoryFiles& files, const std::vector<FakeArchives::Entry>& entries)
        : files_(files), entries_(entries) {}
    void list(const std::function<void(const std::string&)>& onEntry) override {
        for (const auto& entry : entries_) onEntry(entry.name);
    }
    EntryFault read(const std::string& name, std::uint64_t most, std::size_t pieceSize,
                    const TakePiece& take) override {
        for (const auto& entry : entries_) {
            if (!equalNoCase(entry.name, name)) continue;
            if (entry.bytes.size() > most) return "too large";
            for (std::size_t at = 0; at < entry.bytes.size(); at += pieceSize)
                take(entry.bytes.size(), std::string_view(entry.bytes).substr(at, pieceSize));
            return entry.fault.empty() ? EntryFault() : entry.fault;
        }
        return "missing";
    }
    EntryFault extract(const std::string& name, std::uint64_t most, const std::string& folder,
                       const std::function<void()>&) override {
        std::string bytes;
        const auto take = [&](std::uint64_t, std::string_view piece) { bytes += piece; };
        const EntryFault fault = read(name, most, 1024, take);
        if (!fault) files_.put(folder + name, bytes);
        return fault;
    }

private:
    MemoryFiles& files_;
    const std::vector<FakeArchives::Entry>& entries_;
};

}  // namespace

void FakeArchives::put(const std::string& path, std::vector<Entry> entries) {
    files_.put(path, "");
    archives_[lower(path)] = std::move(entries);
}

std::unique_ptr<Archive> FakeArchives::open(const std::string& path) {
    const auto found = archives_.find(lower(path));
    if (found == archives_.end()) return nullptr;
    ++opened;
    return std::make_unique<MemoryArchive>(files_, found->second);
}

EntryFault FakeArchives::store(const std::string& bytes, const std::string& entry, const std::string& folder) {
    files_.put(folder + entry, bytes);
    return {};
}

Picture FakePictures::open(const std::string& path) {
    Picture picture;
    picture.width = static_cast<int>(valInt16(files_.openText(path)->readBytes(8)));
    if (picture.width == 0) throw RuntimeFailure("no picture: " + path);
    shown.push_back(path);
    return picture;
}

bool RecordingLog::has(const std::string& line) const { return std::find(lines.begin(), lines.end(), line) != lines.end(); }

std::string crlf(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\r\n";
    return text;
}

std::string SourceTexts::text(std::string_view name) const {
    const std::filesystem::path here = std::source_location::current().file_name();
    std::ifstream file(here.parent_path() / "../../../src/help/pages" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace gatehouse::fake
