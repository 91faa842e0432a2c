#pragma once

#include "rig/KMMorph.h"

/// Appends the displacement of a vertex, unless it has no length or one beyond all numbers.
void appendDelta(MorphDeltas &deltas, int vertex, const kvm::Vector3 &offset);
