// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/SnapShots.h>

#include <QDomNode>
#include <QString>

namespace rvopen::bench {

/// What reading a document adds up to, so that nothing of it can be left out.
struct Sum {
    double numbers = 0.0;
    long characters = 0;
    long values = 0;

    void add(double number)
    {
        numbers += number;
        ++values;
    }
    void add(const float* triple)
    {
        numbers += static_cast<double>(triple[0] + triple[1] + triple[2]);
        ++values;
    }
    void add(const QString& text)
    {
        characters += static_cast<long>(text.size());
        ++values;
    }
};

/// Makes every object of the collection's snapshots and reads every typed value once, through the
/// accessors of the classes.
Sum readByAccessors(SnapShots* collection);
/// The same of documents that have a snapshot's own attributes and its camera, and nothing else:
/// other accessors make what they are asked for and is not there.
Sum readCameras(SnapShots* collection);
/// Like readByAccessors(), but parameter after parameter, as in a list that shows them all.
Sum readParameters(SnapShots* collection);
/// Like readParameters(), of all that is below a node.
Sum readTree(RVOpenNode* node);
/// Reads the same attributes by hand, in one walk over the collection's element.
Sum readByHand(const QDomNode& collection);

/// Makes the objects of all that is below the node.
long materialise(RVOpenNode* node);

} // namespace rvopen::bench
