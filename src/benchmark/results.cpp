#include "benchmark/results.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace gatehouse {

namespace {

/// A field of comma-separated values.
std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string field = "\"";
    for (const char c : text) field += c == '"' ? std::string("\"\"") : std::string(1, c);
    return field + "\"";
}

std::string joined(const std::vector<std::string>& fields, char separator) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) line += separator;
        line += separator == ',' ? csvField(fields[i]) : oneLine(fields[i]);
    }
    return line + std::string(kCrLf);
}

/// The variables of a generated config with their values, in its order.
std::vector<std::pair<std::string, std::string>> variablesOf(const std::string& text) {
    std::vector<std::pair<std::string, std::string>> variables;
    for (const std::string& line : splitLines(text)) {
        const long quote = find(line, "\"");
        if (quote == 0 || line.starts_with("//")) continue;
        std::string name = trim(left(line, quote - 1));
        if (startsWith(name, "seta ")) name = trim(mid(name, 6));
        std::string value = mid(line, quote + 1);
        if (value.ends_with('"')) value.pop_back();
        if (!name.empty()) variables.emplace_back(std::move(name), std::move(value));
    }
    return variables;
}

ResultRow rowOf(const RunRecord& record, std::size_t configuration, std::size_t demo, bool several) {
    ResultRow row;
    if (several) row.run = record.started;
    row.configuration = record.configurations[configuration].name;
    row.text = record.configurations[configuration].text;
    row.demo = record.demos[demo];
    return row;
}

void judge(ResultRow& row) {
    const std::vector<double> figures = row.figures();
    row.summary = summarise(figures);
    const std::vector<bool> far = outliers(figures);
    std::size_t good = 0;
    for (const Iteration& one : row.iterations) row.outlier.push_back(one.outcome == Outcome::Good && far[good++]);
    row.slowFirst = !row.iterations.empty() && row.iterations.front().outcome == Outcome::Good && slowFirst(figures);
}

}  // namespace

std::vector<double> ResultRow::figures() const {
    std::vector<double> values;
    for (const Iteration& one : iterations)
        if (one.outcome == Outcome::Good) values.push_back(one.value);
    return values;
}

std::string ResultRow::configurationLabel() const {
    return run.empty() ? configuration : configuration + " (" + run + ")";
}

std::vector<ResultRow> resultRows(const std::vector<RunRecord>& records) {
    std::vector<ResultRow> rows;
    for (const RunRecord& record : records) {
        std::map<std::pair<int, int>, ResultRow> pairs;
        for (const Iteration& one : record.iterations) {
            const auto [pair, isNew] = pairs.try_emplace({one.configuration, one.demo});
            if (isNew)
                pair->second = rowOf(record, static_cast<std::size_t>(one.configuration),
                                     static_cast<std::size_t>(one.demo), records.size() > 1);
            pair->second.iterations.push_back(one);
        }
        for (auto& [place, row] : pairs) {
            judge(row);
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

std::vector<SettingDifference> differingSettings(const std::string& first, const std::string& second) {
    const auto firstOnes = variablesOf(first);
    const auto secondOnes = variablesOf(second);
    std::map<std::string, std::string> inFirst(firstOnes.begin(), firstOnes.end());
    std::map<std::string, std::string> inSecond(secondOnes.begin(), secondOnes.end());
    std::vector<SettingDifference> differences;
    for (const auto& [name, value] : firstOnes)
        if (const auto other = inSecond.find(name); other == inSecond.end() || other->second != value)
            differences.push_back({name, value, other == inSecond.end() ? std::string() : other->second});
    for (const auto& [name, value] : secondOnes)
        if (!inFirst.contains(name)) differences.push_back({name, {}, value});
    return differences;
}

std::string csvText(const std::vector<ResultRow>& rows) {
    std::string text =
        joined({"run", "configuration", "demo", "iteration", "state", "fps", "frames", "seconds", "at"}, ',');
    for (const ResultRow& row : rows)
        for (const Iteration& one : row.iterations)
            text += joined({row.run, row.configuration, row.demo, std::to_string(one.number),
                            std::string(outcomeName(one.outcome)),
                            one.outcome == Outcome::Good ? decimalText(one.value) : std::string(),
                            one.frames ? std::to_string(*one.frames) : std::string(),
                            one.seconds ? decimalText(*one.seconds) : std::string(), one.at},
                           ',');
    return text;
}

std::string tableText(const std::vector<ResultRow>& rows) {
    std::string text = joined({"Document", "Demo", "n", "Median", "Mean", "Deviation", "Minimum", "Maximum"}, '\t');
    for (const ResultRow& row : rows) {
        const Summary& of = row.summary;
        const auto figure = [&of](double value) { return of.n > 0 ? figureText(value) : std::string(); };
        text +=
            joined({row.configurationLabel(), row.demo, std::to_string(of.n), figure(of.median), figure(of.mean),
                    of.deviation ? figureText(*of.deviation) : std::string(), figure(of.minimum), figure(of.maximum)},
                   '\t');
    }
    return text;
}

std::string figureText(double figure) {
    if (std::fabs(figure) > 1e12) return decimalText(figure);
    const long long hundredths = std::llround(std::fabs(figure) * 100);
    return std::string(figure < 0 && hundredths > 0 ? "-" : "") + std::to_string(hundredths / 100) + "." +
           zeroPadded(static_cast<long>(hundredths % 100), 2);
}

}  // namespace gatehouse
