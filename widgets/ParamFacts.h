// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/widgets/WidgetsExport.h>

#include <QDomElement>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace rvopen::widgets {

/// What an editor has to know of a parameter: what the schema says of it where it stands, as far as
/// its own type agrees, narrowed to its own range. Numbers are in scene units.
struct ParamFacts {
    /// For people, in English: a few words; the parameter's name where nothing is known of it.
    QString label;
    /// For people, in English: a sentence; empty where nothing is known.
    QString help;
    /// What numbers count, for people: "degrees"; empty for none.
    QString unit;
    /// That of the parameter itself; String, and read-only, for a type that nobody knows.
    toolkit::ValueType type = toolkit::ValueType::String;
    /// Of a string.
    toolkit::Content content = toolkit::Content::Text;
    /// Values outside of it are refused; of colours and the like that of each number.
    toolkit::Range hard;
    /// What a slider should offer, inside of the hard range; without an end for no slider.
    toolkit::Range soft;
    /// In which steps; 0 where none is usual.
    double step = 0;
    /// The values to offer; empty for none.
    QStringList choices;
    /// Any other value is as good.
    bool areChoicesOpen = false;
    /// The value is shown and not edited.
    bool isReadOnly = false;
};

/// Of a "param" element where it stands now.
RVOPEN_WIDGETS_EXPORT ParamFacts FactsOf(const QDomElement& param);

/// The three numbers of a value as ParamModel gives it; 0 0 0 for what has not three.
struct Triple {
    double numbers[3] = {0, 0, 0}; ///< In the order of the document.

    /// Of a colour, vector or point.
    RVOPEN_WIDGETS_EXPORT static Triple Of(const QVariant& value);
    /// As ParamModel takes it.
    RVOPEN_WIDGETS_EXPORT QVariant ToVariant() const;
};

} // namespace rvopen::widgets

Q_DECLARE_METATYPE(rvopen::widgets::ParamFacts)
