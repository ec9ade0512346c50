// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Allocations.h"
#include "Operations.h"

#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>

#include <benchmark/benchmark.h>

#include <QDomDocument>
#include <QStringList>

#include <cstdlib>
#include <functional>
#include <memory>

namespace rvopen::bench {

namespace {

const int s_calls = 1000;

/// A node with thirteen parameters, the first and the last of which have the type in question.
struct Fixture {
    QDomDocument document;
    QDomElement element;
    std::unique_ptr<RVOpenNode> node;

    Fixture(const QString& type, const QString& value, bool dimensional)
    {
        QDomElement root = document.createElement(QStringLiteral("snapRoot"));
        root.setAttribute(QStringLiteral("unitsScale"), QStringLiteral("2.5"));
        document.appendChild(root);
        element = document.createElement(QStringLiteral("finish"));
        root.appendChild(element);
        for (int i = 1; i <= 13; ++i) {
            const bool wanted = i == 1 || i == 13;
            QDomElement param = document.createElement(QStringLiteral("param"));
            param.setAttribute(QStringLiteral("name"), QStringLiteral("parameter %1").arg(i));
            param.setAttribute(QStringLiteral("type"), wanted ? type : QStringLiteral("integer"));
            param.setAttribute(QStringLiteral("val"), wanted ? value : QStringLiteral("4"));
            if (wanted && dimensional)
                param.setAttribute(QStringLiteral("prop"), QStringLiteral("D"));
            element.appendChild(param);
        }
        node = std::make_unique<RVOpenNode>();
        node->SetDomNode(element);
        node->GetParamHelper()->Populate();
    }
};

QDomElement findByHand(const QDomElement& owner, const QString& name)
{
    const QString tag = QStringLiteral("param");
    QDomElement param = owner.firstChildElement(tag);
    while (!param.isNull() && param.attribute(QStringLiteral("name")) != name)
        param = param.nextSiblingElement(tag);
    return param;
}

bool isOfType(const QDomElement& param, const QString& type)
{
    return !param.isNull() && param.attribute(QStringLiteral("type")) == type;
}

float scaleByHand(const QDomElement& param)
{
    if (!param.attribute(QStringLiteral("prop")).contains(QLatin1Char('D')))
        return 1.0f;
    const QDomElement root = param.ownerDocument().documentElement();
    return root.attribute(QStringLiteral("unitsScale"), QStringLiteral("1.0")).toFloat();
}

bool getFloatByHand(const QDomElement& owner, const QString& name, float* out)
{
    const QDomElement param = findByHand(owner, name);
    if (!isOfType(param, QStringLiteral("float")))
        return false;
    const QString text = param.attribute(QStringLiteral("val"));
    if (text.isEmpty())
        return false;
    *out = text.toFloat() / scaleByHand(param);
    return true;
}

bool setFloatByHand(const QDomElement& owner, const QString& name, float value)
{
    QDomElement param = findByHand(owner, name);
    if (!isOfType(param, QStringLiteral("float")))
        return false;
    const float stored = value * scaleByHand(param);
    param.setAttribute(QStringLiteral("val"), QString::number(static_cast<double>(stored), 'g', 6));
    return true;
}

bool getBoolByHand(const QDomElement& owner, const QString& name, int* out)
{
    const QDomElement param = findByHand(owner, name);
    if (!isOfType(param, QStringLiteral("boolean")))
        return false;
    const QString text = param.attribute(QStringLiteral("val"));
    if (text.isEmpty())
        return false;
    *out = text.toInt() >= 1 ? 1 : 0;
    return true;
}

bool setBoolByHand(const QDomElement& owner, const QString& name, int value)
{
    QDomElement param = findByHand(owner, name);
    if (!isOfType(param, QStringLiteral("boolean")))
        return false;
    param.setAttribute(QStringLiteral("val"), value ? QStringLiteral("1") : QStringLiteral("0"));
    return true;
}

bool getColourByHand(const QDomElement& owner, const QString& name, float* out)
{
    const QDomElement param = findByHand(owner, name);
    if (!isOfType(param, QStringLiteral("colour")))
        return false;
    const QString text = param.attribute(QStringLiteral("val"));
    if (text.isEmpty())
        return false;
    const QStringList numbers = text.split(QLatin1Char(' '));
    for (int i = 0; i < 3; ++i)
        out[i] = i < numbers.size() ? numbers[i].toFloat() : 0.0f;
    return true;
}

bool setColourByHand(const QDomElement& owner, const QString& name, const float* value)
{
    QDomElement param = findByHand(owner, name);
    if (!isOfType(param, QStringLiteral("colour")))
        return false;
    QString text;
    for (int i = 0; i < 3; ++i) {
        if (i > 0)
            text += QLatin1Char(' ');
        text += QString::number(static_cast<double>(value[i]), 'g', 6);
    }
    param.setAttribute(QStringLiteral("val"), text);
    return true;
}

using Call = std::function<bool(Fixture& fixture, const QString& name, int number)>;

struct Access {
    const char* operation;
    const char* type;
    const char* value;
    bool dimensional;
    Call byHand;
    Call byModel;
};

float numbered(int number)
{
    return 0.125f + static_cast<float>(number % 8) * 0.25f;
}

const Call s_getFloatByHand = [](Fixture& f, const QString& name, int) {
    float value = 0.0f;
    const bool good = getFloatByHand(f.element, name, &value);
    benchmark::DoNotOptimize(value);
    return good;
};

const Call s_setFloatByHand = [](Fixture& f, const QString& name, int number) {
    return setFloatByHand(f.element, name, numbered(number));
};

const Call s_getFloat = [](Fixture& f, const QString& name, int) {
    float value = 0.0f;
    const bool good = f.node->GetParamHelper()->GetValFloat(name, &value) == 0;
    benchmark::DoNotOptimize(value);
    return good;
};

const Call s_setFloat = [](Fixture& f, const QString& name, int number) {
    Param* const param = f.node->GetParamHelper()->GetParam(name);
    return param && param->SetValFloat(numbered(number)) == 0;
};

const Access s_accesses[] = {
    {"get a float", "float", "0.625", false, s_getFloatByHand, s_getFloat},
    {"set a float", "float", "0.625", false, s_setFloatByHand, s_setFloat},
    {"get a dimensional float", "float", "12.5", true, s_getFloatByHand, s_getFloat},
    {"set a dimensional float", "float", "12.5", true, s_setFloatByHand, s_setFloat},
    {"get a bool", "boolean", "1", false,
     [](Fixture& f, const QString& name, int) {
         int value = 0;
         const bool good = getBoolByHand(f.element, name, &value);
         benchmark::DoNotOptimize(value);
         return good;
     },
     [](Fixture& f, const QString& name, int) {
         int value = 0;
         const bool good = f.node->GetParamHelper()->GetValBool(name, &value) == 0;
         benchmark::DoNotOptimize(value);
         return good;
     }},
    {"set a bool", "boolean", "1", false,
     [](Fixture& f, const QString& name, int number) {
         return setBoolByHand(f.element, name, number % 2);
     },
     [](Fixture& f, const QString& name, int number) {
         Param* const param = f.node->GetParamHelper()->GetParam(name);
         return param && param->SetValBool(number % 2) == 0;
     }},
    {"get a colour", "colour", "0.227451 0.482353 0.835294", false,
     [](Fixture& f, const QString& name, int) {
         float value[3] = {};
         const bool good = getColourByHand(f.element, name, value);
         benchmark::DoNotOptimize(value);
         return good;
     },
     [](Fixture& f, const QString& name, int) {
         float value[3] = {};
         const bool good = f.node->GetParamHelper()->GetValColour(name, value) == 0;
         benchmark::DoNotOptimize(value);
         return good;
     }},
    {"set a colour", "colour", "0.227451 0.482353 0.835294", false,
     [](Fixture& f, const QString& name, int number) {
         const float value[3] = {numbered(number), numbered(number + 1), numbered(number + 2)};
         return setColourByHand(f.element, name, value);
     },
     [](Fixture& f, const QString& name, int number) {
         Param* const param = f.node->GetParamHelper()->GetParam(name);
         float value[3] = {numbered(number), numbered(number + 1), numbered(number + 2)};
         return param && param->SetValColour(value) == 0;
     }},
};

std::shared_ptr<Fixture> fixtureFor(const Access& access)
{
    return std::make_shared<Fixture>(QString::fromLatin1(access.type),
                                     QString::fromLatin1(access.value), access.dimensional);
}

void call(const Call& access, Fixture& fixture, const QString& name)
{
    for (int i = 0; i < s_calls; ++i) {
        if (!access(fixture, name, i))
            std::abort();
    }
}

Case callCase(const char* label, const Access& access, const Call& how, const QString& name)
{
    const auto run = [fixture = fixtureFor(access), &how, name](Clock& clock) {
        clock.start();
        call(how, *fixture, name);
        clock.stop();
    };
    return {label, run, s_calls};
}

double allocationsOf(const Access& access, const Call& how, const QString& name)
{
    const auto fixture = fixtureFor(access);
    call(how, *fixture, name);
    const long before = allocations();
    call(how, *fixture, name);
    return static_cast<double>(allocations() - before) / s_calls;
}

} // namespace

void compareParameters(Report& report)
{
    for (const Access& access : s_accesses) {
        for (const int position : {1, 13}) {
            const QString name = QStringLiteral("parameter %1").arg(position);
            report.compare(access.operation, position == 1 ? "first" : "13th", 1.0,
                           [&]() -> std::vector<Case> {
                               return {callCase("by hand", access, access.byHand, name),
                                       callCase("", access, access.byModel, name)};
                           });
        }
    }
    if (!canCountAllocations())
        return;
    for (const Access& access : s_accesses) {
        const QString name = QStringLiteral("parameter 13");
        report.value(std::string("allocations to ") + access.operation, "13th", "by hand, count",
                     1.0, [&] {
                         return std::make_pair(allocationsOf(access, access.byHand, name),
                                               allocationsOf(access, access.byModel, name));
                     });
    }
}

} // namespace rvopen::bench
