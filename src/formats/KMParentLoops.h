#pragma once

#include <QVector>

/// Cuts the loops of a table that says for each record of a file which one is its parent, -1 at the top: in each loop
/// one record comes to the top. Answers which ones.
QVector<int> cutParentLoops(QVector<int> &parents);
