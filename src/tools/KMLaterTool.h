#pragma once

#include "tools/KMTool.h"

/// A tool that has its place, but does nothing yet.
class KMLaterTool : public KMTool
{
    Q_OBJECT
public:
    using KMTool::KMTool;

    bool isReady() const override { return false; }
};
