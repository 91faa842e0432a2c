#pragma once

#include "math/Vector3.h"
#include "support/MeshFixtures.h"

#include <QPair>
#include <QStringList>
#include <QVector>

#include <cstddef>

class KMModifierNode;

/// A mesh with one modifier, both taken over, evaluated as a frame does.
class ModifierStage
{
    Q_DISABLE_COPY(ModifierStage)
public:
    ModifierStage(KMMeshNode *mesh, KMModifierNode *modifier);
    ~ModifierStage();

    void evaluate(); ///< after edits of the mesh or the settings
    KMMeshNode &result();
    QString rebuiltProblem(); ///< where the result differs from one made afresh; empty where it doesn't
    std::size_t updateAllocations();

    KMMeshNode *mesh;
    KMModifierNode *modifier;
};

/// A mesh of these line polygons alone, refreshed.
KMMeshNode *wire(const QVector<kvm::Vector3> &places, const QVector<QPair<int, int>> &lines);
/// One line behind the other, and back to the start where it is closed.
KMMeshNode *polyline(const QVector<kvm::Vector3> &places, bool isClosed = false);

/// Catches what is logged while it lives.
class LogNotes
{
    Q_DISABLE_COPY(LogNotes)
public:
    LogNotes();
    ~LogNotes();
    static QStringList lines;

private:
    QtMessageHandler m_before;
};
