#pragma once

#include "shell/toolpages/KMPreviewPage.h"

class KMToolBevel;

/// The controls of the bevel tool: how wide.
class KMBevelPage : public KMPreviewPage
{
    Q_OBJECT
public:
    explicit KMBevelPage(KMToolBevel *tool, QWidget *parent = nullptr);
};
