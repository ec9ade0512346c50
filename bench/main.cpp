// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Operations.h"

#include <benchmark/benchmark.h>

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

const char s_usage[] =
    "Usage: rvopen_bench [--quick] [--counts] [--filter <regex>] [--max-elements <n>]\n"
    "                    [--repetitions <n>] [--csv <file>]\n";

bool parse(int argc, char** argv, rvopen::bench::Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--quick") {
            options.quick = true;
            continue;
        }
        if (option == "--counts") {
            options.counts = true;
            continue;
        }
        if (++i == argc)
            return false;
        if (option == "--filter")
            options.filter = std::regex(argv[i]);
        else if (option == "--max-elements")
            options.maxElements = std::atol(argv[i]);
        else if (option == "--csv")
            options.csv = argv[i];
        else if (option == "--repetitions")
            options.repetitions = std::atoi(argv[i]);
        else
            return false;
    }
    return options.repetitions > 0;
}

} // namespace

int main(int argc, char** argv)
{
    using namespace rvopen::bench;
    Options options;
    if (!parse(argc, argv, options)) {
        std::fputs(s_usage, stderr);
        return 2;
    }
    int count = 1;
    benchmark::Initialize(&count, argv);

    std::printf("Qt %s\n", qVersion());
    Report report(options);
    const std::vector<std::string> columns{"size",  "baseline",    "baseline takes", "rvopen takes",
                                           "ratio", "middle half", "target",         ""};
    report.section("Against the bare DOM", columns);
    compareDocuments(report);
    compareParameters(report);
    compareLookups(report);
    compareCatalogue(report);
    compareMemory(report);
    report.section("Time per element or call as documents grow",
                   {"10 k", "100 k", "1 M", "largest ratio", "target", ""});
    growDocuments(report);
    growTrees(report);
    growLookups(report);
    if (report.missed() > 0)
        std::printf("\n%d targets not met\n", report.missed());
    return 0;
}
