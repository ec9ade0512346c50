// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ORVBase.h>

#include "TestSupport.h"

#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>

#include <cstdlib>
#include <type_traits>

namespace rvopen::test {
namespace {

// The sanitizers end the program where memory goes back to another allocator than it came from.

TEST(ORVBase, MemoryOfEachNewCanGoBackWithFree)
{
    for (void* memory :
         {ORVBase::operator new(16), ORVBase::operator new[](16),
          ORVBase::operator new(16, "host.cpp", 7), ORVBase::operator new[](16, "host.cpp", 7)}) {
        EXPECT_NE(memory, nullptr);
        std::free(memory);
    }
}

TEST(ORVBase, EachDeleteTakesMemoryOfMalloc)
{
    // Where the memory comes from is hidden from the compiler, which would warn of the mixture.
    void* (*const volatile allocate)(std::size_t) = std::malloc;
    ORVBase::operator delete(allocate(16));
    ORVBase::operator delete[](allocate(16));
    ORVBase::operator delete(allocate(16), "host.cpp", 7);
    ORVBase::operator delete[](allocate(16), "host.cpp", 7);
}

TEST(ORVBase, ObjectsOfTheModelCanBeMadeWithTheDebuggingForm)
{
    RVOpenNode* const node = new ("host.cpp", 7) RVOpenNode();
    EXPECT_TRUE(node->GetDomNode().isNull());
    delete node;
}

TEST(ORVBase, ArraysOfObjectsCanBeMade)
{
    Param* const params = new Param[3];
    EXPECT_TRUE(params[2].GetDomNode().isNull());
    delete[] params;
}

TEST(ORVBase, NewGivesNullWhenMemoryIsExhausted)
{
    EXPECT_EQ(ORVBase::operator new(~std::size_t(0) / 2), nullptr);
}

TEST(ORVBase, NodesAreDestroyedThroughTheirBase)
{
    EXPECT_TRUE((std::is_base_of_v<ORVBase, RVOpenNode>));
    EXPECT_TRUE(std::has_virtual_destructor_v<RVOpenNode>);
    EXPECT_TRUE(std::has_virtual_destructor_v<ParamHelper>);
}

} // namespace
} // namespace rvopen::test
