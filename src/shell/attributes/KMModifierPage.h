#pragma once

#include "shell/attributes/KMNullPage.h"

class KMModifierNode;

/// A modifier: its transform, the mesh that it works on and, in the classes of KMModifierPages, its parameters.
class KMModifierPage : public KMNullPage
{
    Q_OBJECT
public:
    KMModifierPage(KMModifierNode *modifier, const QString &title);
};
