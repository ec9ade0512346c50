// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Processors.h"

#include <algorithm>
#include <future>
#include <system_error>
#include <thread>
#include <vector>

namespace rvopen::toolkit {

void onAllProcessors(std::size_t pieces,
                     const std::function<void(NextPiece& next, bool isHere)>& work)
{
    NextPiece next{0};
    const std::size_t processors =
        std::min<std::size_t>(std::max(std::thread::hardware_concurrency(), 1U), pieces);
    std::vector<std::future<void>> others;
    try {
        while (others.size() + 1 < processors)
            others.push_back(std::async(std::launch::async, [&work, &next] { work(next, false); }));
    } catch (const std::system_error&) {
        // Where there can be no more threads, fewer do the same.
    }
    work(next, true);
    for (std::future<void>& other : others)
        other.get();
}

void forEachPiece(std::size_t count, const std::function<void(std::size_t)>& work)
{
    onAllProcessors(count, [count, &work](NextPiece& next, bool) {
        for (std::size_t i; (i = next++) < count;)
            work(i);
    });
}

} // namespace rvopen::toolkit
