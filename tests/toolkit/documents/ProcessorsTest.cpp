// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/documents/Processors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace rvopen::toolkit;

TEST(Processors, DoEachPieceOnce)
{
    for (const std::size_t count : {0U, 1U, 2U, 1000U}) {
        std::vector<std::atomic<int>> done(count);
        forEachPiece(count, [&done](std::size_t i) { ++done[i]; });
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(done[i], 1) << i << " of " << count;
    }
}

TEST(Processors, AreNoMoreThanPiecesAndOneOfThemIsHere)
{
    for (const std::size_t pieces : {0U, 1U, 1000U}) {
        std::atomic<std::size_t> calls{0};
        std::atomic<int> here{0};
        const std::thread::id caller = std::this_thread::get_id();
        onAllProcessors(pieces, [&](NextPiece&, bool isHere) {
            ++calls;
            EXPECT_EQ(isHere, std::this_thread::get_id() == caller);
            here += isHere ? 1 : 0;
        });
        EXPECT_EQ(here, 1);
        EXPECT_LE(calls, std::max<std::size_t>(pieces, 1));
    }
}

TEST(Processors, LetTheCallerKnowWhatWasThrown)
{
    EXPECT_THROW(forEachPiece(100,
                              [](std::size_t i) {
                                  if (i == 50)
                                      throw std::runtime_error("at 50");
                              }),
                 std::runtime_error);
}
