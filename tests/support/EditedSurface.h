#pragma once

#include "support/MeshFixtures.h"

#include <functional>

/// A document with one surface of a kind, with UVs, shaders and creases, and the same numbers in each run.
class EditedSurface
{
public:
    enum Shape { Cube, Grid, Torus, Star, Cone, ShapeCount }; ///< Grid and Star are flat, Grid, Star and Cone open

    explicit EditedSurface(int shape);

    /// Runs an edit that makes one step, and walks back and forth over it. What is wrong with the surface after it, or
    /// with the history; empty when nothing is.
    QString edit(const std::function<bool()> &run);

    static QString problem(const KMMeshNode &mesh); ///< loose vertices, edges of three faces, faces turned over
    static int borderEdges(const KMMeshNode &mesh);
    static int unmirroredVertex(const KMMeshNode &mesh,
                                float tolerance); ///< one without an image across x; -1 for none

    MeshScene scene;
};
