// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/drawing/Drawing.h"

#include "toolkit/documents/Stopping.h"

#include <gtest/gtest.h>

#include <atomic>

namespace rvopen::test {

using namespace toolkit;

TEST(Drawings, ThatAreStoppedAreNotBegunInAnyThread)
{
    std::atomic<int> begun{0};
    const std::vector<drawing::Draw> draws(8, [&begun] {
        ++begun;
        return QImage(1, 1, QImage::Format_RGB32);
    });
    EXPECT_EQ(drawing::drawnTogether(draws).size(), 8U);
    EXPECT_EQ(begun, 8);
    const std::atomic<bool> stop{true};
    const Stoppable stoppable(&stop);
    for (const QImage& image : drawing::drawnTogether(draws))
        EXPECT_TRUE(image.isNull());
    EXPECT_EQ(begun, 8);
}

} // namespace rvopen::test
