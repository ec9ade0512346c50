// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ParamModel.h>

#include "Nodes.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenObserver.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QColor>
#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

bool isParam(const QDomNode& node)
{
    return node.nodeName() == QLatin1String("param");
}

QColor colourOf(const QVariant& value)
{
    const Triple triple = Triple::Of(value);
    const auto channel = [&triple](int i) {
        return float(std::clamp(triple.numbers[i], 0.0, 1.0));
    };
    return QColor::fromRgbF(channel(0), channel(1), channel(2));
}

QString tripleText(const Triple& triple)
{
    return NumberText(triple.numbers[0]) + QLatin1Char(' ') + NumberText(triple.numbers[1]) +
           QLatin1Char(' ') + NumberText(triple.numbers[2]);
}

/// As ParamValues takes it.
QString typedText(const QVariant& value)
{
    switch (int(value.userType())) {
    case QMetaType::QVariantList:
        return tripleText(Triple::Of(value));
    case QMetaType::QColor: {
        const QColor colour = value.value<QColor>();
        return tripleText(
            {{double(colour.redF()), double(colour.greenF()), double(colour.blueF())}});
    }
    case QMetaType::Double:
    case QMetaType::Float:
        return NumberText(value.toDouble());
    default:
        return value.toString();
    }
}

QString toolTip(const ParamFacts& facts, const QString& name)
{
    QStringList lines;
    if (!facts.help.isEmpty())
        lines << facts.help;
    const QString range = RangeText(facts.hard);
    if (!range.isEmpty())
        lines << (range + QLatin1Char(' ') + facts.unit).trimmed();
    if (facts.label != name)
        lines << name;
    return lines.join(QLatin1Char('\n'));
}

} // namespace

/// What is shown, and what keeps it as the document has it.
class RVOPEN_WIDGETS_NO_EXPORT ParamModel::Rows : public RVOpenObserver {
public:
    Rows(ParamModel& model, const QDomElement& root, Depth depth)
        : RVOpenObserver(root.ownerDocument())
        , m_model(model)
        , m_document(root.ownerDocument())
        , m_root(root)
        , m_depth(depth)
        , m_values(std::make_unique<ParamValues>())
        , m_params(paramsIn(root))
    {
    }

    void Changed(const RVOpenChange& change) override
    {
        const bool wasTold = std::exchange(m_isTold, true);
        switch (change.kind) {
        case RVOpenChange::AttributeSet:
            attributeSet(change);
            break;
        case RVOpenChange::ChildInserted:
            inserted(change.node);
            break;
        case RVOpenChange::ChildRemoved:
            removed(change.node);
            break;
        case RVOpenChange::DocumentAboutToBeReset:
            m_model.beginResetModel();
            m_root = QDomElement();
            m_params.clear();
            m_model.endResetModel();
            break;
        default:
            break;
        }
        m_isTold = wasTold;
    }

    QDomElement root() const
    {
        return m_root;
    }

    const std::vector<QDomElement>& params() const
    {
        return m_params;
    }

    ParamValues& values()
    {
        return *m_values;
    }

    bool isTold() const
    {
        return m_isTold;
    }

    QString section(const QDomElement& param) const
    {
        QStringList names;
        for (QDomNode node = param.parentNode(); !node.isNull() && node != m_root;
             node = node.parentNode()) {
            if (!isParam(node))
                names.prepend(node.nodeName());
        }
        return names.join(QLatin1String(" / "));
    }

private:
    std::vector<QDomElement> paramsIn(const QDomElement& element) const
    {
        std::vector<QDomElement> params;
        if (!element.isNull())
            addParams(element, params);
        return params;
    }

    void addParams(const QDomElement& element, std::vector<QDomElement>& params) const
    {
        for (QDomElement child = element.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            if (isParam(child))
                params.push_back(child);
            if (m_depth == Below)
                addParams(child, params);
        }
    }

    void attributeSet(const RVOpenChange& change)
    {
        if (change.name == QLatin1String("unitsScale")) {
            // Objects of parameters keep the scale that they saw first.
            m_values = std::make_unique<ParamValues>();
            tell(0, int(m_params.size()) - 1);
            return;
        }
        const auto row = std::find(m_params.begin(), m_params.end(), change.node);
        if (row != m_params.end()) {
            tell(int(row - m_params.begin()), int(row - m_params.begin()));
            return;
        }
        // What is known of a parameter depends on the kind of the element that has it.
        for (int i = 0; i < int(m_params.size()); ++i) {
            if (m_params[std::size_t(i)].parentNode() == change.node)
                tell(i, i);
        }
    }

    void tell(int first, int last)
    {
        if (first <= last)
            Q_EMIT m_model.dataChanged(m_model.index(first, 0),
                                       m_model.index(last, ColumnCount - 1));
    }

    void inserted(const QDomNode& node)
    {
        if (isInside(m_root, node))
            m_isOut = false;
        else if (m_isOut || !isInside(node, m_root))
            return;
        // Those that are new stand together.
        std::vector<QDomElement> params = paramsIn(m_root);
        const std::size_t added = params.size() - m_params.size();
        if (added == 0)
            return;
        const auto differs = std::mismatch(m_params.begin(), m_params.end(), params.begin());
        const int first = int(differs.first - m_params.begin());
        m_model.beginInsertRows(QModelIndex(), first, first + int(added) - 1);
        m_params = std::move(params);
        m_model.endInsertRows();
    }

    void removed(const QDomNode& node)
    {
        if (isInside(m_root, node))
            m_isOut = true;
        const auto isGone = [&node](const QDomElement& param) { return isInside(param, node); };
        const auto first = std::find_if(m_params.begin(), m_params.end(), isGone);
        const auto last = std::find_if_not(first, m_params.end(), isGone);
        if (first == last)
            return;
        m_model.beginRemoveRows(QModelIndex(), int(first - m_params.begin()),
                                int(last - m_params.begin()) - 1);
        m_params.erase(first, last);
        m_model.endRemoveRows();
    }

    ParamModel& m_model;
    QDomDocument m_document; ///< Elements alone do not keep it alive.
    QDomElement m_root;
    Depth m_depth;
    std::unique_ptr<ParamValues> m_values;
    std::vector<QDomElement> m_params;
    bool m_isOut = false; ///< It was taken out, and has no rows until it is back.
    bool m_isTold = false;
};

ParamModel::ParamModel(QObject* parent)
    : QAbstractTableModel(parent)
{
}

ParamModel::~ParamModel() = default;

void ParamModel::SetElement(const QDomElement& element, Depth depth)
{
    beginResetModel();
    m_rows = element.isNull() ? nullptr : std::make_unique<Rows>(*this, element, depth);
    endResetModel();
}

void ParamModel::SetNode(RVOpenNode* node, Depth depth)
{
    SetElement(node ? node->GetDomNode().toElement() : QDomElement(), depth);
}

QDomElement ParamModel::Element() const
{
    return m_rows ? m_rows->root() : QDomElement();
}

QDomElement ParamModel::Param(const QModelIndex& index) const
{
    Q_ASSERT(!index.isValid() || checkIndex(index, CheckIndexOption::ParentIsInvalid));
    return index.isValid() ? m_rows->params()[std::size_t(index.row())] : QDomElement();
}

QModelIndex ParamModel::IndexOf(const QDomElement& param) const
{
    if (!m_rows)
        return QModelIndex();
    const std::vector<QDomElement>& params = m_rows->params();
    const auto row = std::find(params.begin(), params.end(), param);
    return row == params.end() ? QModelIndex() : index(int(row - params.begin()), Value);
}

int ParamModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_rows ? 0 : int(m_rows->params().size());
}

int ParamModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant ParamModel::data(const QModelIndex& index, int role) const
{
    const QDomElement param = Param(index);
    if (param.isNull())
        return QVariant();
    const ParamFacts facts = FactsOf(param);
    ParamValues& values = m_rows->values();
    switch (role) {
    case FactsRole:
        return QVariant::fromValue(facts);
    case SectionRole:
        return m_rows->section(param);
    case Qt::ToolTipRole:
        return toolTip(facts, param.attribute(QStringLiteral("name")));
    case Qt::AccessibleDescriptionRole:
        return facts.help;
    case Qt::DisplayRole:
        break;
    case Qt::EditRole:
        if (index.column() == Value)
            return values.Value(param);
        break;
    case Qt::CheckStateRole: {
        if (index.column() != Value || facts.type != ValueType::Boolean)
            return QVariant();
        return int(values.Value(param).toBool() ? Qt::Checked : Qt::Unchecked);
    }
    case Qt::DecorationRole: {
        const QVariant value = index.column() == Value && facts.type == ValueType::Colour
                                   ? values.Value(param)
                                   : QVariant();
        return value.isValid() ? QVariant(colourOf(value)) : QVariant();
    }
    case Qt::AccessibleTextRole:
        if (index.column() == Value)
            return (facts.label + QLatin1String(": ") + values.Text(param) + QLatin1Char(' ') +
                    facts.unit)
                .trimmed();
        break;
    default:
        return QVariant();
    }
    switch (index.column()) {
    case Name:
        return facts.label;
    case Value:
        return values.Text(param);
    case Unit:
        return facts.unit;
    default:
        return facts.help;
    }
}

bool ParamModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const bool isCheck = role == Qt::CheckStateRole;
    if (!(flags(index) & (isCheck ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable)) ||
        (!isCheck && role != Qt::EditRole) || m_rows->isTold())
        return false;
    const QDomElement param = Param(index);
    const QString text = typedText(isCheck ? QVariant(value.toInt() == Qt::Checked) : value);
    const QString problem = m_rows->values().Check(param, text);
    if (!problem.isEmpty()) {
        Q_EMIT Refused(index, problem);
        return false;
    }
    m_rows->values().Set(param, text);
    return true;
}

Qt::ItemFlags ParamModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid())
        return flags;
    flags |= Qt::ItemNeverHasChildren;
    if (index.column() != Value)
        return flags;
    const ParamFacts facts = FactsOf(Param(index));
    if (!facts.isReadOnly)
        flags |= facts.type == ValueType::Boolean ? Qt::ItemIsUserCheckable | Qt::ItemIsEditable
                                                  : Qt::ItemIsEditable;
    return flags;
}

QVariant ParamModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Name:
        return tr("Name");
    case Value:
        return tr("Value");
    case Unit:
        return tr("Unit");
    case Meaning:
        return tr("Meaning");
    default:
        return QVariant();
    }
}

} // namespace rvopen::widgets
