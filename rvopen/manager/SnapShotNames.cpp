// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/manager/SnapShotNames.h>

#include <rvopen/SnapShot.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace rvopen {

namespace {

/// The number that follows \p base in \p name, written as QString::number writes it; 0 for any
/// other name.
int numberAfter(const QString& base, const QString& name)
{
    if (!name.startsWith(base) || name.size() == base.size() ||
        name.at(base.size()) == QLatin1Char('0'))
        return 0;
    qint64 number = 0;
    for (auto it = name.cbegin() + base.size(); it != name.cend(); ++it) {
        if (*it < QLatin1Char('0') || *it > QLatin1Char('9'))
            return 0;
        number = 10 * number + (it->unicode() - u'0');
        if (number > std::numeric_limits<int>::max())
            return 0;
    }
    return int(number);
}

/// The first number above \p last that with \p base before it names none of \p collection.
int firstFreeNumber(const QString& base, SnapShots* collection, int last)
{
    std::vector<int> numbers;
    SnapShot* snapShot = collection ? collection->GetFirstSnapShot() : nullptr;
    for (; snapShot; snapShot = snapShot->GetNext()) {
        const int number = numberAfter(base, snapShot->GetName());
        if (number > last)
            numbers.push_back(number);
    }
    // Among one number more than there are, one is free.
    std::vector<bool> isTaken(numbers.size() + 1);
    for (const int number : numbers) {
        const auto place = std::size_t(number - last - 1);
        if (place < isTaken.size())
            isTaken[place] = true;
    }
    return last + 1 + int(std::find(isTaken.begin(), isTaken.end(), false) - isTaken.begin());
}

} // namespace

QString SnapShotNames::next(const QString& base, SnapShots::SnapShotType type,
                            SnapShots* collection)
{
    int* number = &m_snapShots;
    if (type == SnapShots::TypeMaterialPalettes)
        number = &m_materialPalettes;
    else if (type == SnapShots::TypeBackgrounds)
        number = &m_backgrounds;
    else if (type == SnapShots::TypeCameras)
        number = &m_cameras;
    *number = firstFreeNumber(base, collection, *number);
    return base + QString::number(*number);
}

} // namespace rvopen
