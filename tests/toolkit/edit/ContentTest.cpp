// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/edit/Content.h"

#include "../Parts.h"

#include <rvopen/toolkit/edit/ParamValues.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

QByteArray digestOf(const char* xml)
{
    const QDomDocument document = parsed(xml);
    ParamValues values;
    return contentDigest(document.documentElement(), values);
}

const char s_finish[] =
    "<finish name='A'><param name='x' type='float' val='0.5'/><param name='y' type='integer' "
    "val='1'/><part a='1'/><part a='2'/></finish>";

} // namespace

TEST(Content, IsEqualWhateverItIsCalledAndHoweverItIsWritten)
{
    EXPECT_EQ(digestOf("<finish refname='B' desc='c' xmlImage='d'><!-- e --><param type='integer' "
                       "val='01' name='y'/><part a='1'/> <param name='x' type='float' "
                       "val='0.50'/><part a='2' name='f'/></finish>"),
              digestOf(s_finish));
}

TEST(Content, DiffersInKindValuesAttributesAndOrderOfParts)
{
    for (const char* const other :
         {"<bump><param name='x' type='float' val='0.5'/><param name='y' type='integer' "
          "val='1'/><part a='1'/><part a='2'/></bump>",
          "<finish><param name='x' type='float' val='0.6'/><param name='y' type='integer' "
          "val='1'/><part a='1'/><part a='2'/></finish>",
          "<finish><param name='z' type='float' val='0.5'/><param name='y' type='integer' "
          "val='1'/><part a='1'/><part a='2'/></finish>",
          "<finish subcat='x'><param name='x' type='float' val='0.5'/><param name='y' "
          "type='integer' val='1'/><part a='1'/><part a='2'/></finish>",
          "<finish><param name='x' type='float' val='0.5'/><param name='y' type='integer' "
          "val='1'/><part a='2'/><part a='1'/></finish>",
          "<finish><param name='x' type='float' val='0.5'/><param name='y' type='integer' "
          "val='1'/><part a='1'><part a='2'/></part></finish>"})
        EXPECT_NE(digestOf(other), digestOf(s_finish)) << other;
}

} // namespace rvopen::test
