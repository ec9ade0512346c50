// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/edit/Condition.h"

#include "../Parts.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/ParamValues.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

/// Of a document whose lengths are stored ten times as long as they are.
const char s_preset[] = R"(<snapRoot unitsScale="10"><material name="Brass" cat="Métals" desc="">
<param name="Own" type="integer" val="3"/>
<finish><param name="roughness" type="float" val="0.1"/>
<param name="diffuse factor" type="float" val="0.5"/>
<param name="Enabled" type="boolean" val="1"/>
<param name="Width" prop="D" type="float" val="25"/>
<param name="metal colour" type="colour" val="1 0.502 0"/>
<param name="a = b" type="string" val="Old Oak"/>
<param name="Layer" type="shader" val="colour"><map>
<param name="roughness" type="float" val="0.9"/><param name="Depth" type="float" val="7"/>
</map></param></finish></material></snapRoot>)";

struct ConditionCase {
    const char* text;
    bool holds;
};

void PrintTo(const ConditionCase& one, std::ostream* out)
{
    *out << one.text;
}

class Holding : public ::testing::TestWithParam<ConditionCase> {};

class NoCondition : public ::testing::TestWithParam<const char*> {};

} // namespace

TEST_P(Holding, IsJudged)
{
    const QDomDocument document = parsed(s_preset);
    ParamValues values;
    EXPECT_EQ(Condition(QString::fromUtf8(GetParam().text))
                  .holds(document.documentElement().firstChildElement(), values),
              GetParam().holds);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, Holding,
    ::testing::Values(ConditionCase{"roughness>0.05", true},
                      ConditionCase{"roughness > 0.1", false},
                      ConditionCase{"roughness >= 0.1", true}, ConditionCase{"roughness<0.2", true},
                      ConditionCase{"roughness<0.1", false}, ConditionCase{"roughness<=0.1", true},
                      ConditionCase{"roughness<=0.09", false},
                      ConditionCase{"roughness=0.10", true}, ConditionCase{"roughness=0.9", false},
                      ConditionCase{"roughness!=0.1", false}, ConditionCase{"roughness!=1", true},
                      ConditionCase{"ROUGHNESS=1e-1", true}, ConditionCase{":roughness=0.1", true},
                      ConditionCase{"Depth = 7", true}, ConditionCase{"Own=3", true},
                      ConditionCase{"Own", true}, ConditionCase{"Other", false},
                      ConditionCase{"Other!=1", false}, ConditionCase{"Width=2.5", true},
                      ConditionCase{"Width=25", false}));

INSTANTIATE_TEST_SUITE_P(Names, Holding,
                         ::testing::Values(ConditionCase{"'diffuse factor' >= 0.5", true},
                                           ConditionCase{"\"diffuse factor\"<0.5", false},
                                           ConditionCase{"diffuse factor = 0.5", true},
                                           ConditionCase{"'a = b' = 'Old Oak'", true},
                                           ConditionCase{"'a = b'~OAK", true},
                                           ConditionCase{"'a = b'=old oak", false}));

INSTANTIATE_TEST_SUITE_P(Others, Holding,
                         ::testing::Values(ConditionCase{"Enabled=yes", true},
                                           ConditionCase{"Enabled=false", false},
                                           ConditionCase{"Enabled!=0", true},
                                           ConditionCase{"'metal colour'=#ff8000", true},
                                           ConditionCase{"'metal colour'=#ff8200", false},
                                           ConditionCase{"'metal colour'=1 0.502 0", true},
                                           ConditionCase{"'metal colour'=1,0.5,0", false},
                                           ConditionCase{"'metal colour'!=#ff8000", false}));

INSTANTIATE_TEST_SUITE_P(
    Attributes, Holding,
    ::testing::Values(ConditionCase{"@name=Brass", true}, ConditionCase{"@name = brass", false},
                      ConditionCase{"@cat ~ metal", true}, ConditionCase{"@cat!=Glass", true},
                      ConditionCase{"@desc", true}, ConditionCase{"@refname", false},
                      ConditionCase{"@refname=", true}, ConditionCase{"@Name=Brass", false}));

TEST_P(NoCondition, IsRefused)
{
    EXPECT_THROW(Condition(QString::fromUtf8(GetParam())), Failure);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoCondition,
                         ::testing::Values("", "=1", "@", "@=1", "''=1", "a<b", "a>=", "a!b", "a<",
                                           "a=>1", "a==1", "a<>1", "a= >1"));

} // namespace rvopen::test
