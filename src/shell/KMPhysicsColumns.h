#pragma once

#include "shell/KMSheetModel.h"

/// The columns of the table of the physics.
namespace KMPhysicsColumns {

QVector<KMSheetModel::Column> ofBodies();
QVector<KMSheetModel::Column> ofJoints();

} // namespace KMPhysicsColumns
