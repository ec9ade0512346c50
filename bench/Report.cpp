// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Report.h"

#include <benchmark/benchmark.h>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(name)
#endif

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <thread>
#include <utility>

namespace rvopen::bench {

namespace {

/// Keeps the time of an iteration instead of printing it.
class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override
    {
        return true;
    }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            m_seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
    }
    double seconds() const
    {
        return m_seconds;
    }

private:
    double m_seconds = 0.0;
};

void require(bool condition)
{
    if (!condition)
        std::abort();
}

double quantile(std::vector<double> values, double part)
{
    const auto at = values.begin() + static_cast<std::ptrdiff_t>(
                                         part * static_cast<double>(values.size() - 1) + 0.5);
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

double median(const std::vector<double>& values)
{
    return quantile(values, 0.5);
}

std::string format(const char* pattern, double value)
{
    char text[64];
    std::snprintf(text, sizeof text, pattern, value);
    return text;
}

std::string ratioText(double ratio)
{
    return format(ratio < 0.095 ? "%.4f" : "%.2f", ratio);
}

} // namespace

std::string timeText(double seconds)
{
    if (seconds < 1e-6)
        return format("%.1f ns", seconds * 1e9);
    if (seconds < 1e-3)
        return format("%.1f µs", seconds * 1e6);
    return seconds < 1.0 ? format("%.1f ms", seconds * 1e3) : format("%.2f s", seconds);
}

std::string countText(long count)
{
    if (count >= 1000000)
        return std::to_string(count / 1000000) + " M";
    return count >= 1000 ? std::to_string(count / 1000) + " k" : std::to_string(count);
}

std::function<void(Clock&)> inOwnProcess(std::function<void(Clock&)> run)
{
    return [run](Clock& clock) {
        int ends[2];
        require(pipe(ends) == 0);
        const pid_t child = fork();
        require(child >= 0);
        double seconds = 0.0;
        if (child == 0) {
            Clock own;
            std::thread([&] { run(own); }).join();
            seconds = own.seconds();
            _exit(write(ends[1], &seconds, sizeof seconds) == ssize_t(sizeof seconds) ? 0 : 1);
        }
        close(ends[1]);
        require(read(ends[0], &seconds, sizeof seconds) == ssize_t(sizeof seconds));
        close(ends[0]);
        require(waitpid(child, nullptr, 0) == child);
        clock.add(seconds);
    };
}

void Clock::toggleCounting()
{
    CALLGRIND_TOGGLE_COLLECT;
}

Report::Report(const Options& options)
    : m_options(options)
{
    if (m_options.csv.empty())
        return;
    m_csv = std::fopen(m_options.csv.c_str(), "w");
    if (!m_csv) {
        std::perror(m_options.csv.c_str());
        std::exit(2);
    }
    record({"operation", "size", "baseline", "baseline takes", "rvopen takes", "ratio",
            "lower quartile", "upper quartile", "target"});
}

Report::~Report()
{
    if (m_csv)
        std::fclose(m_csv);
}

void Report::section(const std::string& title, const std::vector<std::string>& columns)
{
    std::printf("\n%s\n\n", title.c_str());
    std::vector<std::string> headings{"operation"};
    headings.insert(headings.end(), columns.begin(), columns.end());
    line(headings);
    line(std::vector<std::string>(headings.size(), "---"));
}

std::vector<long> Report::sizes() const
{
    std::vector<long> sizes;
    for (const long size : {1000L, 10000L, 100000L, 1000000L}) {
        if (sizes.empty() || (!m_options.quick && size <= m_options.maxElements))
            sizes.push_back(size);
    }
    return sizes;
}

void Report::compare(const std::string& operation, const std::string& size,
                     std::optional<double> target, const MakeCases& make)
{
    if (!isWanted(operation))
        return;
    const std::vector<Case> cases = make();
    if (m_options.counts) {
        for (const Case& measured : cases)
            count(operation, size, measured);
        return;
    }
    const auto times = measure(cases);
    std::vector<double> ratios;
    for (std::size_t i = 0; i < times[0].size(); ++i)
        ratios.push_back((times[1][i] / cases[1].units) / (times[0][i] / cases[0].units));
    const double ratio = median(ratios);
    line({operation, size, cases[0].name, timeText(median(times[0]) / cases[0].units),
          timeText(median(times[1]) / cases[1].units), ratioText(ratio),
          ratioText(quantile(ratios, 0.25)) + " to " + ratioText(quantile(ratios, 0.75)),
          target ? ratioText(*target) : "", verdict(target, ratio)});
    record({operation, size, cases[0].name, format("%.4g", median(times[0]) / cases[0].units),
            format("%.4g", median(times[1]) / cases[1].units), format("%.4g", ratio),
            format("%.4g", quantile(ratios, 0.25)), format("%.4g", quantile(ratios, 0.75)),
            target ? format("%.4g", *target) : ""});
}

void Report::grow(const std::string& operation, const std::function<Case(long)>& make,
                  std::optional<double> target, long limit)
{
    if (m_options.counts || !isWanted(operation))
        return;
    const long growing[] = {10000, 100000, 1000000};
    std::vector<Case> cases;
    for (const long size : growing) {
        if (cases.empty() || (!m_options.quick && size <= std::min(limit, m_options.maxElements)))
            cases.push_back(make(m_options.quick ? 1000L : size));
    }
    const auto times = measure(cases);
    std::vector<std::string> cells{operation};
    double worst = 0.0;
    for (std::size_t i = 0; i < std::size(growing); ++i) {
        if (i >= cases.size()) {
            cells.push_back("");
            continue;
        }
        std::vector<double> ratios;
        for (std::size_t j = 0; j < times[i].size(); ++j)
            ratios.push_back((times[i][j] / cases[i].units) / (times[0][j] / cases[0].units));
        worst = std::max(worst, median(ratios));
        const double each = median(times[i]) / cases[i].units;
        cells.push_back(timeText(each));
        record({operation + ", each", countText(growing[i]), countText(growing[0]),
                format("%.4g", median(times[0]) / cases[0].units), format("%.4g", each),
                format("%.4g", median(ratios)), "", "", target ? format("%.4g", *target) : ""});
    }
    cells.push_back(ratioText(worst));
    cells.push_back(target ? ratioText(*target) : "");
    cells.push_back(verdict(target, worst));
    line(cells);
}

void Report::value(const std::string& operation, const std::string& size, const std::string& unit,
                   std::optional<double> target,
                   const std::function<std::pair<double, double>()>& get)
{
    if (m_options.counts || !isWanted(operation))
        return;
    const auto values = get();
    const double ratio = values.first > 0.0 ? values.second / values.first : 1.0 + values.second;
    line({operation, size, unit, format("%.1f", values.first), format("%.1f", values.second),
          ratioText(ratio), "", target ? ratioText(*target) : "", verdict(target, ratio)});
    record({operation, size, unit, format("%.4g", values.first), format("%.4g", values.second),
            format("%.4g", ratio), "", "", target ? format("%.4g", *target) : ""});
}

bool Report::isWanted(const std::string& operation) const
{
    return std::regex_search(operation, m_options.filter);
}

/// The first run binds what is bound at the first call. Whoever started callgrind finds the counts
/// of the second one in a file of the name.
void Report::count(const std::string& operation, const std::string& size, const Case& measured)
{
    Clock clock;
    measured.run(clock);
    CALLGRIND_ZERO_STATS;
    measured.run(clock);
    const std::string name =
        operation + '|' + size + '|' + measured.name + '|' + std::to_string(measured.units);
    CALLGRIND_DUMP_STATS_AT(name.c_str());
}

/// The times of each case, run after run in turns.
std::vector<std::vector<double>> Report::measure(const std::vector<Case>& cases) const
{
    benchmark::ClearRegisteredBenchmarks();
    for (std::size_t i = 0; i < cases.size(); ++i) {
        auto* const registered = benchmark::RegisterBenchmark(
            std::to_string(i).c_str(), [&cases, i](benchmark::State& state) {
                for (auto _ : state) {
                    Clock clock;
                    cases[i].run(clock);
                    state.SetIterationTime(clock.seconds());
                }
            });
        registered->UseManualTime();
        registered->Iterations(1);
    }
    Collector collector;
    const auto runOnce = [&](std::size_t i) {
        benchmark::RunSpecifiedBenchmarks(&collector, '^' + std::to_string(i) + '/');
        return collector.seconds();
    };

    // What is over in a moment is run more often: a quarter of a second for each case.
    double longest = 0.0;
    for (std::size_t i = 0; i < cases.size(); ++i)
        longest = std::max(longest, m_options.quick ? 1.0 : runOnce(i));
    int repetitions = 1;
    if (!m_options.quick) {
        repetitions = longest > 0.5 ? std::min(3, m_options.repetitions) : m_options.repetitions;
        if (longest * repetitions < 0.25)
            repetitions = std::min(101, static_cast<int>(0.25 / longest));
    }
    std::vector<std::vector<double>> times(cases.size());
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        for (std::size_t i = 0; i < cases.size(); ++i)
            times[i].push_back(runOnce(i));
    }
    return times;
}

void Report::line(const std::vector<std::string>& cells) const
{
    for (const std::string& cell : cells)
        std::printf("| %s ", cell.c_str());
    std::printf("|\n");
    std::fflush(stdout);
}

/// A line of the file; no cell has a quote.
void Report::record(const std::vector<std::string>& cells) const
{
    if (!m_csv)
        return;
    for (std::size_t i = 0; i < cells.size(); ++i)
        std::fprintf(m_csv, i == 0 ? "\"%s\"" : ",\"%s\"", cells[i].c_str());
    std::fputs("\n", m_csv);
    std::fflush(m_csv);
}

std::string Report::verdict(std::optional<double> target, double value)
{
    if (!target)
        return "";
    if (m_options.quick)
        return "ran";
    // As printed.
    const bool met = std::stod(ratioText(value)) <= *target;
    m_missed += met ? 0 : 1;
    return met ? "met" : "not met";
}

} // namespace rvopen::bench
