#pragma once

#include "shell/attributes/KMNodePage.h"

class KMPbrShaderNode;

/// A physically based shader: its name, and why its faces are black.
class KMPbrShaderPage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMPbrShaderPage(KMPbrShaderNode *shader);
};
