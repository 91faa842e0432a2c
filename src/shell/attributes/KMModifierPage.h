#pragma once

#include "shell/attributes/KMNullPage.h"

class KMModifierNode;

/// A modifier: its transform, the mesh that it works on and, in the classes of KMModifierPages, its parameters.
class KMModifierPage : public KMNullPage
{
    Q_OBJECT
public:
    /// The last name is that of the row which shows the mesh.
    KMModifierPage(KMModifierNode *modifier, const QString &title, const QString &meshRow = QStringLiteral("rootMesh"));
};
