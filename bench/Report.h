// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>
#include <ctime>
#include <functional>
#include <optional>
#include <regex>
#include <string>
#include <vector>

namespace rvopen::bench {

/// Counts the CPU time of the process between start() and stop(); under callgrind, only what is
/// done between them counts.
class Clock {
public:
    void start()
    {
        toggleCounting();
        m_ticks -= now();
    }
    void stop()
    {
        m_ticks += now();
        toggleCounting();
    }
    void add(double seconds)
    {
        m_ticks += seconds;
    }
    double seconds() const
    {
        return m_ticks;
    }

private:
    static void toggleCounting();
    static double now()
    {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    double m_ticks = 0.0;
};

/// What memory costs depends on how scattered it is that earlier runs left. A thread has a heap of
/// its own, and in a process of its own that is gone afterwards.
std::function<void(Clock&)> inOwnProcess(std::function<void(Clock&)> run);

/// What is timed. It starts and stops the clock itself, so that preparing and cleaning up do not
/// count.
struct Case {
    std::string name;
    std::function<void(Clock&)> run;
    /// Elements or calls in one run, which its time is divided by where times are per element.
    double units = 1.0;
};

using MakeCases = std::function<std::vector<Case>()>;

struct Options {
    /// Everything once, at the smallest size.
    bool quick = false;
    /// Under callgrind: what is compared, once each and not timed.
    bool counts = false;
    long maxElements = 1000000;
    int repetitions = 9;
    std::regex filter = std::regex("");
    /// A file for the rows as numbers, in seconds; empty for none.
    std::string csv;
};

/// Runs the cases that belong together in turns and prints a line of a Markdown table for them.
class Report {
public:
    explicit Report(const Options& options);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    /// Starts a table. \p columns are the headings after "operation".
    void section(const std::string& title, const std::vector<std::string>& columns);

    /// The sizes of documents to compare at: 1 k, 10 k, 100 k and 1 M elements.
    std::vector<long> sizes() const;

    /// The second case against the first, the baseline. The ratio is the median of the ratios of
    /// neighbouring runs. Without \p target the row is there for orientation.
    void compare(const std::string& operation, const std::string& size,
                 std::optional<double> target, const MakeCases& make);

    /// The time per unit of an operation at 10 k, 100 k and 1 M elements, against the first.
    /// \p make is called with the number of elements and gives one case. \p limit: no more than so
    /// many elements, for operations that cannot be linear.
    void grow(const std::string& operation, const std::function<Case(long)>& make,
              std::optional<double> target, long limit = 1000000);

    /// Two numbers, the first one being the baseline.
    void value(const std::string& operation, const std::string& size, const std::string& unit,
               std::optional<double> target, const std::function<std::pair<double, double>()>& get);

    int missed() const
    {
        return m_missed;
    }

private:
    bool isWanted(const std::string& operation) const;
    static void count(const std::string& operation, const std::string& size, const Case& measured);
    std::vector<std::vector<double>> measure(const std::vector<Case>& cases) const;
    void line(const std::vector<std::string>& cells) const;
    void record(const std::vector<std::string>& cells) const;
    std::string verdict(std::optional<double> target, double value);

    Options m_options;
    std::FILE* m_csv = nullptr;
    int m_missed = 0;
};

std::string timeText(double seconds);
std::string countText(long count);

} // namespace rvopen::bench
