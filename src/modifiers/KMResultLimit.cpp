#include "modifiers/KMResultLimit.h"

#include "core/KMPlatform.h"
#include "core/KMSolution.h"
#include "mesh/KMEdge.h"
#include "mesh/KMFace.h"
#include "mesh/KMVertex.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 maxRecords = 1 << 27; // lists of pointers and counts of drawn elements stay below what an int counts

/// What a mesh of this size takes with its edges, lists and the buffers of a view, about.
double bytesFor(qint64 vertices, qint64 faces)
{
    constexpr double pointers = 4 * sizeof(void *);
    constexpr double perVertex = sizeof(KMVertex) + pointers + sizeof(kvm::Vector3);
    constexpr double edges = 2 * (sizeof(KMEdge) + pointers);
    constexpr double drawn = 6 * 13 * sizeof(float);
    constexpr double perFace = sizeof(KMFace) + pointers + edges + drawn;
    return double(vertices) * perVertex + double(faces) * perFace;
}

double roomLeft()
{
    constexpr double share = 0.75; // the rest of the program needs some as well
    constexpr double modest = 4e9; // for a system that doesn't say
    const quint64 available = availableMemory();
    return available > 0 ? share * double(available) : modest;
}

} // namespace

bool KMResultLimit::allows(const QString &name, qint64 vertices, qint64 faces, qint64 tables)
{
    constexpr qint64 small = 100000; // not worth the question
    if (vertices <= small && faces <= small)
        return true;
    const bool isTooMany = vertices > maxRecords || faces > maxRecords;
    if (!isTooMany && bytesFor(vertices, faces) + double(tables) <= roomLeft())
        return true;
    const QLocale locale;
    report(QCoreApplication::translate(
               "KMResultLimit",
               "%1 would make %2 vertices and %3 faces, more than the memory holds; its result stays empty")
               .arg(name, locale.toString(vertices), locale.toString(faces)));
    return false;
}

float KMResultLimit::bounded(float value, float otherwise)
{
    constexpr float most = 1e9f;
    return std::isfinite(value) ? std::clamp(value, -most, most) : otherwise;
}

void KMResultLimit::report(const QString &what)
{
    constexpr int warningLevel = 4;
    qDebug().noquote() << what;
    if (gSolution)
        gSolution->showMessage(what, warningLevel);
}
