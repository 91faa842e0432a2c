#pragma once

#include "math/Vector3.h"

#include <QByteArray>
#include <QtEndian>

#include <random>

/// Numbers for files that are written and read: they come back bit for bit, and their sums are exact.
namespace RandomNumbers {

using Random = std::mt19937;

inline float number(Random &random)
{
    return float(int(random() % 20001) - 10000) / 64.0f;
}

inline kvm::Vector3 point(Random &random)
{
    const float x = number(random);
    const float y = number(random);
    return {x, y, number(random)};
}

/// Damages the bytes behind a place at up to so many places: other bytes, counts that lie, bytes that are lost and such
/// as stand there twice. The end is never short of a few.
inline void damage(QByteArray &bytes, Random &random, int most, int start = 0)
{
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    for (int faults = 1 + below(most); faults > 0; --faults) {
        const int at = start + below(bytes.size() - start - 4);
        switch (below(5)) {
        case 0:
            bytes[at] = char(random());
            break;
        case 1:
            bytes[at] = char(below(2) ? 0xff : below(6));
            break;
        case 2: {
            const qint32 count = below(2) ? qint32(random()) : below(300) - 10;
            const qint32 either = below(2) ? qToBigEndian(count) : qToLittleEndian(count);
            bytes.replace(at, 4, reinterpret_cast<const char *>(&either), 4);
            break;
        }
        case 3:
            bytes.remove(at, 1 + below(8));
            break;
        default:
            bytes.insert(at, bytes.mid(below(bytes.size()), 1 + below(60)));
        }
        bytes.append("....", 4);
    }
}

} // namespace RandomNumbers
